// Hosts that are Qt programs, and what a host can see of the library's own application.
#include "support/files.h"
#include "support/harness.h"
#include "support/host.h"
#include "support/layouts.h"
#include "support/wide.h"

#include <velnorxmltoimg.h>

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QTimer>

#include <atomic>
#include <functional>
#include <thread>

#define SHAPES CANVAS_OF(200, 100) BOX QR_CODE
#define PICTURE_OF                                                                                 \
    CANVAS_OF(200, 100) "<VelnorItem class='image' id='logo'><filepath>%s</filepath></VelnorItem>"

namespace {

constexpr int Rounds = 3;

// The arguments of the host's own application, which needs no display either.
struct HostArguments {
    char program[5] = "host";
    char option[10] = "-platform";
    char platform[10] = "offscreen";
    char* values[4] = {program, option, platform, nullptr};
    int count = 3;
};

void runOnLibraryThread(const std::function<void()>& work) {
    std::atomic<bool> done{false};
    QMetaObject::invokeMethod(
        qApp,
        [&] {
            work();
            done = true;
        },
        Qt::QueuedConnection);
    while (!done) {
        sleepMilliseconds(1);
    }
}

void quitApplication(std::thread& starter) {
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    starter.join();
}

// Shapes and barcodes are drawn as ever, a text is not, and nothing is printed.
void checkTextIsLeftOut() {
    captureOutput();
    renderLayout("blank", CANVAS_OF(200, 100));
    renderLayout("shapes", SHAPES);
    renderLayout("all", SHAPES LABEL);
    checkSilent();
    CHECK(!sameContent("shapes.png", "blank.png"));
    CHECK(sameContent("all.png", "shapes.png"));
}

// Every function that could need fonts is called with font files beside the document.
void checkFontsAreLeftOut() {
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", VELNOR_TEST_FONTS "/LiberationSans-Regular.ttf");
    CHECK_INT(1, xmlToImgSetEmbeddedFontKeepFlag(1));
    checkTextIsLeftOut();
    CHECK_INT(0, xmlToImgSetEmbeddedFontKeepFlag(0));
    renderLayout("again", SHAPES LABEL);
    CHECK(sameContent("again.png", "shapes.png"));
}

void checkDictionariesWork() {
    char text[16];
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", SHAPES));
    CHECK_INT(0, xmlToImgSetTagDictionary(handler, "tag", "value"));
    CHECK_INT(0, xmlToImgSetObjectTagDictionary(handler, "box.text", "value"));
    CHECK_INT(0, xmlToImgGetObjectTagDictionary(handler, "box.text", text, sizeof text));
    CHECK_TEXT("value", text);
    CHECK_INT(-1, xmlToImgSetObjectLinkDictionary(handler, "box.link", "value"));
    CHECK_INT(0, xmlToImgClearAllDictionary(handler));
    CHECK_INT(200, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

// The files of a layout under the same names as in the resources.
void copyResources(const char* folder) {
    for (const char* name : {"page.xml", "params.xml", "art/logo.png", "fonts/mono.ttf"}) {
        const QString copy = QString::fromUtf8(pathOf(textOf("%s/%s", folder, name)));
        CHECK(QDir().mkpath(QFileInfo(copy).path()));
        CHECK(QFile::copy(QString::fromUtf8(textOf(":/till/%s", name)), copy));
    }
}

// The layout of a folder that only Qt may know, with its font, its picture and its parameter file.
void drawTill(const char* folder, const char* output) {
    char messages[200];
    int bold = 9;
    int italic = 9;
    void* handler = xmlToImgCreateHandler(textOf("%s/page.xml", folder));
    CHECK_INT(0, xmlToImgGetFontProperty(handler, "Liberation Mono", &bold, &italic));
    CHECK_INT(0, xmlToImgSetDictionaryFromParamFile(handler, textOf("%s/params.xml", folder)));
    CHECK_INT(0, xmlToImgCheckCorrect(handler, messages, sizeof messages));
    CHECK_TEXT("", messages);
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf(output)));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

// Validation names the picture, and drawing leaves it out like one that is not there.
void checkMissing(const char* path) {
    char messages[200];
    renderLayout("blank", CANVAS_OF(200, 100));
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", textOf(PICTURE_OF, path)));
    CHECK_INT(-1, xmlToImgCheckCorrect(handler, messages, sizeof messages));
    CHECK_TEXT(textOf("Image item id=logo: invalid filepath(%s); ", path), messages);
    CHECK_INT(0, xmlToImgCreateImage(handler, pathOf("page.png")));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
    CHECK(sameContent("page.png", "blank.png"));
}

} // namespace

CASE(an_application_of_the_host_is_announced_at_once) {
    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values);
    CHECK_INT(0, xmlToImgQtInitialized());
    xmlToImgInitializeQtNoReturn();
    CHECK_INT(1, xmlToImgQtInitialized());
    CHECK_INT(0, VelnorQtStartedAsNonGuiApp);
    xmlToImgInitializeQtNoReturn();
    CHECK_INT(1, xmlToImgQtInitialized());
    CHECK_INT(0, VelnorQtStartedAsNonGuiApp);
}

CASE(a_host_with_a_gui_application_draws_everything) {
    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values);
    xmlToImgInitializeQtNoReturn();
    renderLayout("shapes", SHAPES);
    renderLayout("all", SHAPES LABEL);
    CHECK(!sameContent("all.png", "shapes.png"));
    checkDictionariesWork();
}

// The application of a host scales for its screen; paper has no screen.
CASE(a_host_that_scales_gets_the_same_dots) {
    hideSystemFonts();
    makeFolder("fonts");
    linkFile("fonts/sans.ttf", VELNOR_TEST_FONTS "/LiberationSans-Regular.ttf");
    const char* document = writeLayout("all.xml", SHAPES LABEL);
    CHECK_INT(0, runSmallHost(document, pathOf("plain.png")));
    qputenv("QT_SCALE_FACTOR", "2");
    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values);
    CHECK(application.devicePixelRatio() == 2);
    xmlToImgInitializeQtNoReturn();
    render(document, "scaled.png");
    CHECK(sameContent("plain.png", "scaled.png"));
}

/* Qt gives a new picture the resolution of the host's screen, which sizes a text in points. */
CASE(texts_have_the_same_dots_whatever_the_resolution_of_the_host) {
    {
        HostArguments arguments;
        const QGuiApplication application(arguments.count, arguments.values);
        CHECK(QGuiApplication::primaryScreen()->logicalDotsPerInch() != 96);
        xmlToImgInitializeQtNoReturn();
        renderLayout("host", CANVAS_OF(200, 100) LABEL);
    }
    startLibrary();
    CHECK(sameContent("host.png", renderLayout("library", CANVAS_OF(200, 100) LABEL)));
}

CASE(a_layout_and_its_files_may_lie_in_the_resources_of_the_host) {
    hideSystemFonts();
    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values);
    xmlToImgInitializeQtNoReturn();
    copyResources("till");
    drawTill(pathOf("till"), "disk.png");
    captureOutput();
    drawTill(":/till", "resources.png");
    checkSilent();
    CHECK(sameContent("resources.png", "disk.png"));
    checkMissing(":/till/art/none.png");
}

CASE(a_layout_and_its_files_may_lie_in_a_search_path_of_the_host) {
    hideSystemFonts();
    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values);
    xmlToImgInitializeQtNoReturn();
    copyResources("forms/till");
    drawTill(pathOf("forms/till"), "disk.png");
    QDir::addSearchPath(QStringLiteral("layouts"), QString::fromUtf8(pathOf("forms")));
    captureOutput();
    drawTill("layouts:till", "search_path.png");
    QDir::setSearchPaths(QStringLiteral("layouts"), {QStringLiteral(":/")});
    drawTill("layouts:till", "search_path_of_resources.png");
    checkSilent();
    CHECK(sameContent("search_path.png", "disk.png"));
    CHECK(sameContent("search_path_of_resources.png", "disk.png"));
    checkMissing("layouts:/art/none.png");
}

CASE(after_the_application_of_the_host_the_library_is_not_initialized) {
    {
        HostArguments arguments;
        const QGuiApplication application(arguments.count, arguments.values);
        xmlToImgInitializeQtNoReturn();
    }
    CHECK_INT(0, xmlToImgQtInitialized());
    CHECK_INT(0, VelnorQtStartedAsNonGuiApp);
}

CASE(a_host_without_a_gui_gets_pictures_without_text) {
    HostArguments arguments;
    const QCoreApplication application(arguments.count, arguments.values);
    xmlToImgInitializeQtNoReturn();
    CHECK_INT(1, xmlToImgQtInitialized());
    CHECK_INT(0, VelnorQtStartedAsNonGuiApp);
    checkFontsAreLeftOut();
    checkDictionariesWork();
}

CASE(a_host_without_an_application_gets_pictures_without_text) {
    checkFontsAreLeftOut();
    checkDictionariesWork();
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(wideOf(scratchFolder()), UpToZero));
    CHECK_INT(0, xmlToImgQtInitialized());
}

CASE(calls_before_the_application_of_the_host_leave_its_thread_as_it_was) {
    checkTextIsLeftOut();
    CHECK(QAbstractEventDispatcher::instance() == nullptr);
    HostArguments arguments;
    const QGuiApplication application(arguments.count, arguments.values);
    xmlToImgInitializeQtNoReturn();
    renderLayout("all", SHAPES LABEL);
    CHECK(!sameContent("all.png", "shapes.png"));
}

CASE(pictures_without_text_are_the_same_with_and_without_an_application) {
    renderLayout("without", SHAPES);
    startLibrary();
    renderLayout("with", SHAPES);
    CHECK(sameContent("without.png", "with.png"));
}

CASE(a_text_left_out_before_start_up_is_drawn_after_it) {
    renderLayout("before", SHAPES LABEL);
    startLibrary();
    renderLayout("after", SHAPES LABEL);
    renderLayout("shapes", SHAPES);
    CHECK(sameContent("before.png", "shapes.png"));
    CHECK(!sameContent("after.png", "shapes.png"));
}

CASE(the_application_of_the_library_has_one_argument) {
    startLibrary();
    CHECK(QCoreApplication::arguments() == QStringList(QStringLiteral("qtapp")));
}

CASE(the_application_of_the_library_needs_no_display) {
    startLibrary();
    CHECK(QGuiApplication::platformName() == QLatin1String("offscreen"));
}

CASE(a_plug_in_path_is_added_to_those_of_qt) {
    startLibrary();
    const char* folder = makeFolder("caf\xc3\xa9");
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(wideOf(folder), UpToZero));
    CHECK(QCoreApplication::libraryPaths().contains(QString::fromUtf8(folder)));
    const char* other = makeFolder("other");
    CHECK_INT(0, xmlToImgSetPluginPathUnicode(wideWithTail(other), wideLength(wideOf(other))));
    CHECK(QCoreApplication::libraryPaths().contains(QString::fromUtf8(other)));
}

CASE(the_application_of_the_library_delivers_events_and_timers) {
    startLibrary();
    std::atomic<int> shots{0};
    std::thread::id eventThread;
    runOnLibraryThread([&] {
        eventThread = std::this_thread::get_id();
        QTimer::singleShot(0, qApp, [&shots] { ++shots; });
        QTimer::singleShot(5, qApp, [&shots] { ++shots; });
    });
    while (shots < 2) {
        sleepMilliseconds(1);
    }
    CHECK(eventThread != std::this_thread::get_id());
}

CASE(quitting_the_application_ends_start_up_and_it_can_begin_again) {
    const char* document = writeLayout("all.xml", SHAPES LABEL);
    for (int round = 0; round < Rounds; ++round) {
        std::thread starter(xmlToImgInitializeQtNoReturn);
        waitForInitialized(1);
        CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
        const char* output = textOf("%d.png", round);
        render(document, output);
        CHECK(sameContent(output, "0.png"));
        quitApplication(starter);
        CHECK_INT(0, xmlToImgQtInitialized());
        CHECK_INT(1, VelnorQtStartedAsNonGuiApp);
    }
}

CASE(each_start_is_silent) {
    captureOutput();
    for (int round = 0; round < Rounds; ++round) {
        std::thread starter(xmlToImgInitializeQtNoReturn);
        waitForInitialized(1);
        quitApplication(starter);
    }
    checkSilent();
    CHECK_INT(0, xmlToImgQtInitialized());
}

CASE(no_start_takes_the_glib_main_context) {
    for (int round = 0; round < Rounds; ++round) {
        std::thread starter(xmlToImgInitializeQtNoReturn);
        waitForInitialized(1);
        CHECK(
            !QAbstractEventDispatcher::instance(qApp->thread())->inherits("QEventDispatcherGlib"));
        quitApplication(starter);
    }
}

CASE(one_thread_can_run_the_application_again_and_again) {
    std::atomic<int> ended{0};
    std::thread starter([&ended] {
        while (ended < Rounds) {
            xmlToImgInitializeQtNoReturn();
            ++ended;
        }
    });
    const char* document = writeLayout("all.xml", SHAPES LABEL);
    for (int round = 0; round < Rounds; ++round) {
        waitForInitialized(1);
        render(document, textOf("%d.png", round));
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        while (ended == round) {
            sleepMilliseconds(1);
        }
    }
    starter.join();
    CHECK_INT(0, xmlToImgQtInitialized());
    CHECK(sameContent("0.png", "2.png"));
}

CASE(a_handler_outlives_the_application) {
    std::thread starter(xmlToImgInitializeQtNoReturn);
    waitForInitialized(1);
    void* handler = xmlToImgCreateHandler(writeLayout("page.xml", SHAPES));
    quitApplication(starter);
    CHECK_INT(200, drawnWidth(handler));
    CHECK_INT(0, xmlToImgFreeHandler(handler));
}

CASE(kept_fonts_are_there_in_every_life_of_the_application) {
    xmlToImgSetEmbeddedFontKeepFlag(1);
    for (int life = 0; life < Rounds; ++life) {
        std::thread starter(xmlToImgInitializeQtNoReturn);
        waitForInitialized(1);
        void* handler = xmlToImgCreateHandlerWithDirs("page.xml", "", VELNOR_TEST_FONTS);
        int bold = 9;
        int italic = 9;
        CHECK_INT(0, xmlToImgGetFontProperty(handler, "Liberation Mono", &bold, &italic));
        CHECK_INT(0, xmlToImgFreeHandler(handler));
        quitApplication(starter);
    }
}
