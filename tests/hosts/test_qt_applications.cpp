// Applications of the host and of the library, one after the other.
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"

#include <velnorxmltoimg.h>

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTextCodec>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <array>
#include <atomic>
#include <string>
#include <thread>

#include <clocale>

namespace {

constexpr int Rounds = 5;

// The arguments of the host's own application, which needs no display either.
struct HostArguments {
    std::array<char, 5> program{"host"};
    std::array<char, 10> option{"-platform"};
    std::array<char, 10> platform{"offscreen"};
    std::array<char*, 4> values{program.data(), option.data(), platform.data(), nullptr};
    int count = 3;
};

void drawInApplicationOfHost(const char* output) {
    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values.data());
    xmlToImgInitializeQtNoReturn();
    CHECK_INT(1, xmlToImgQtInitialized());
    drawDocument(TICKET, output);
}

void drawInApplicationOfLibrary(const char* output) {
    const pthread_t starter = startApplication();
    drawDocument(TICKET, output);
    CHECK(endApplication(starter) == nullptr);
}

class CountingWindow : public QWindow {
public:
    int exposures = 0;

protected:
    void exposeEvent(QExposeEvent* /*event*/) override { ++exposures; }
};

// Timers without an interval whose slots draw, until each has drawn a few times.
class DrawingTimers {
public:
    explicit DrawingTimers(QEventLoop& endedLoop) : loop(endedLoop) {
        for (auto& timer : timers) {
            QObject::connect(&timer, &QTimer::timeout, [this] { draw(); });
            timer.start(0);
        }
    }

    int deepest() const { return deepestDraw; }

private:
    void draw() {
        deepestDraw = std::max(deepestDraw, ++depth);
        checkDraws(TICKET, "expected.png");
        --depth;
        if (++drawn == Rounds * static_cast<int>(timers.size())) {
            loop.quit();
        }
    }

    QEventLoop& loop;
    std::array<QTimer, 8> timers;
    int depth = 0;
    int deepestDraw = 0;
    int drawn = 0;
};

void drawInTimersOfALoop() {
    QEventLoop loop;
    const DrawingTimers timers(loop);
    loop.exec();
    CHECK_INT(1, timers.deepest());
}

} // namespace

CASE(the_library_starts_after_the_application_of_the_host_has_ended) {
    drawInApplicationOfHost("of-host.png");
    CHECK_INT(0, xmlToImgQtInitialized());
    CHECK_INT(0, VelnorQtStartedAsNonGuiApp);
    drawInApplicationOfLibrary("of-library.png");
    CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
    CHECK(sameContent("of-host.png", "of-library.png"));
}

CASE(applications_of_host_and_library_take_turns) {
    for (int round = 0; round < Rounds; ++round) {
        drawInApplicationOfLibrary("of-library.png");
        drawInApplicationOfHost("of-host.png");
        CHECK(sameContent("of-host.png", "of-library.png"));
    }
}

CASE(an_application_without_a_gui_gives_way_to_that_of_the_library) {
    {
        HostArguments arguments;
        const QCoreApplication application(arguments.count, arguments.values.data());
        xmlToImgInitializeQtNoReturn();
        drawDocument(TICKET, "without-texts.png");
    }
    drawInApplicationOfLibrary("first.png");
    drawInApplicationOfLibrary("second.png");
    CHECK(sameContent("first.png", "second.png"));
    CHECK(!sameContent("without-texts.png", "first.png"));
}

CASE(a_thread_draws_while_the_application_of_the_host_runs_its_event_loop) {
    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values.data());
    xmlToImgInitializeQtNoReturn();
    drawDocument(TICKET, "by-main.png");
    std::thread drawing([] {
        for (int round = 0; round < Rounds; ++round) {
            checkDraws(TICKET, "by-main.png");
        }
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    CHECK_INT(0, QGuiApplication::exec());
    drawing.join();
}

CASE(a_thread_that_called_the_library_is_as_it_was_for_a_later_application_of_the_host) {
    const bool had96Dpi = QCoreApplication::testAttribute(Qt::AA_Use96Dpi);
    QTextCodec* const codec = QTextCodec::codecForLocale();
    drawInApplicationOfLibrary("of-library.png");
    CHECK(QAbstractEventDispatcher::instance() == nullptr);
    CHECK_INT(had96Dpi, QCoreApplication::testAttribute(Qt::AA_Use96Dpi));
    CHECK(QTextCodec::codecForLocale() == codec);

    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values.data());
    CountingWindow window;
    window.show();
    QCoreApplication::processEvents();
    CHECK_INT(1, window.exposures);
}

CASE(settings_of_the_host_outlive_the_application_of_the_library) {
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QTextCodec* const codec = QTextCodec::codecForName("ISO-8859-15");
    QTextCodec::setCodecForLocale(codec);
    drawInApplicationOfLibrary("of-library.png");
    CHECK(QCoreApplication::testAttribute(Qt::AA_Use96Dpi));
    CHECK(QTextCodec::codecForLocale() == codec);
}

CASE(timers_of_a_host_thread_do_not_fire_inside_a_call) {
    const pthread_t starter = startApplication();
    drawDocument(TICKET, "expected.png");
    drawInTimersOfALoop();
    CHECK(endApplication(starter) == nullptr);
}

CASE(timers_on_the_thread_of_the_application_do_not_fire_inside_a_call) {
    const pthread_t starter = startApplication();
    drawDocument(TICKET, "expected.png");
    QMetaObject::invokeMethod(
        qApp,
        [] {
            drawInTimersOfALoop();
            QCoreApplication::quit();
        },
        Qt::QueuedConnection);
    CHECK(pthread_join(starter, nullptr) == 0);
}

namespace {

std::string localeInStartUp;

void noteLocale() {
    localeInStartUp = setlocale(LC_ALL, nullptr);
}

} // namespace

// Qt calls such a routine at the end of its start-up, when the application is almost made.
CASE(the_locale_is_put_back_before_the_application_is_complete) {
    qputenv("LC_ALL", "C.UTF-8");
    qAddPreRoutine(noteLocale);
    drawInApplicationOfLibrary("of-library.png");
    CHECK_TEXT("C", localeInStartUp.c_str());
    CHECK_TEXT("C", setlocale(LC_ALL, nullptr));
}
