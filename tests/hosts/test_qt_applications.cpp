// Applications of the host and of the library, one after the other.
#include "support/application.h"
#include "support/documents.h"
#include "support/files.h"
#include "support/harness.h"

#include <velnorxmltoimg.h>

#include <QGuiApplication>

#include <array>
#include <atomic>
#include <thread>

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
