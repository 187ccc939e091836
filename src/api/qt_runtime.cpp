#include "velnorxmltoimg.h"

#include "api/application_gate.h"
#include "api/call_guard.h"
#include "api/host_thread.h"
#include "api/host_traces.h"
#include "api/qt_runtime.h"
#include "files/descriptors.h"
#include "render/picture_file.h"
#include "render/velnorimage.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QTextCodec>

#include <array>
#include <memory>

#include <sys/auxv.h>
#include <unistd.h>

std::atomic<int> qtStarted{0};
int qtargc = 0;
char** qtargv = nullptr;
int VelnorQtStartedAsNonGuiApp = 0;

namespace {

constexpr useconds_t StartUpPause = 10000; // microseconds

// Qt ends the process where it cannot load its platform. It takes 3 descriptors for it.
constexpr int DescriptorsOfStartUp = 8;

std::atomic<bool> startUpClaimed{false};

// Qt loads plug-ins from where the environment says, which whoever starts a set-user-ID program
// chooses: there they would get the rights of another user.
bool environmentIsTrusted() {
    return geteuid() == getuid() || getauxval(AT_SECURE) == 0;
}

// Qt takes the platform options out again, so that one argument is left. The platform needs no
// display, whatever the environment says, and an empty theme keeps desktop toolkits out of the
// process.
void prepareArguments() {
    static std::array<char, 128> program;
    static std::array<char, 16> platformOption;
    static std::array<char, 16> platform;
    static std::array<char, 16> themeOption;
    static std::array<char, 1> noTheme;
    static std::array<char*, 6> arguments;
    qstrcpy(program.data(), "qtapp");
    qstrcpy(platformOption.data(), "-platform");
    qstrcpy(platform.data(), "offscreen");
    qstrcpy(themeOption.data(), "-platformtheme");
    noTheme[0] = '\0';
    arguments = {program.data(),     platformOption.data(), platform.data(),
                 themeOption.data(), noTheme.data(),        nullptr};
    qtargc = static_cast<int>(arguments.size()) - 1;
    qtargv = arguments.data();
}

std::unique_ptr<QGuiApplication> makeApplication() {
    const velnor::LocaleKeeper locale;
    const velnor::RuntimeFolderKeeper runtimeFolder;
    prepareArguments();
    // Before the application is made: at another resolution no font family matches exactly.
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    // A scale factor in the environment would switch the hinting of glyphs off.
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
    // Qt would end the process of a daemon that has given up its rights for a while.
    QCoreApplication::setSetuidAllowed(true);
    // File names are UTF-8 in this interface, also where the host's locale is another.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return std::make_unique<QGuiApplication>(qtargc, qtargv);
}

// The library's application. Settings of Qt that it changes get their earlier values when it ends.
class OwnApplication {
public:
    OwnApplication() { messages.leaveToHost(); }

private:
    velnor::MessageFilter messages;
    const velnor::AttributeKeeper resolution{Qt::AA_Use96Dpi};
    const velnor::AttributeKeeper scaling{Qt::AA_DisableHighDpiScaling};
    const velnor::LocaleCodecKeeper codec;
    const std::unique_ptr<QGuiApplication> application = makeApplication();
};

// Qt makes these at their first use: some under locks that it does not let go where memory runs out,
// some to be destroyed when the process exits, which must not come before the wait for calls.
void makeWhatQtMakesAtFirstUse() {
    velnor::requireMemory(0);
    QFontDatabase().families();
    VelnorImage surface(2, 2);
    surface.SetFont(QGuiApplication::font().family(), 1, 96, false, false, true);
    surface.DrawOverlayText(QStringLiteral("x"), 0, 0, 1);
    surface.DrawOverlayEllipse(0, 0, 2, 2, 1, 1, 1, true);
    surface.DrawOverlayPicture(*surface.picture(), 0, 0, 50, 50, -1, -1, 1, 0);
    velnor::encodePicture(*surface.picture(), "png");
}

// Tells the hosts before all is made: the pause that they make then is time to make it.
void tellStarted(bool started) {
    __atomic_store_n(&VelnorQtStartedAsNonGuiApp, started ? 1 : 0, __ATOMIC_RELEASE);
    qtStarted = started ? 1 : 0;
}

std::unique_ptr<OwnApplication> makeCompleteApplication() {
    const velnor::ApplicationChange change;
    // Still 1 where an earlier application has ended.
    qtStarted = 0;
    velnor::ensureThreadHasDispatcher();
    auto application = std::make_unique<OwnApplication>();
    tellStarted(true);
    try {
        makeWhatQtMakesAtFirstUse();
    } catch (...) {
        tellStarted(false);
        throw;
    }
    return application;
}

void runOwnApplication() {
    velnor::requireMemory(0);
    auto application = makeCompleteApplication();
    QCoreApplication::exec();
    const velnor::ApplicationChange change;
    application.reset();
    VelnorXml::forgetEmbeddedFonts();
}

} // namespace

void xmlToImgInitializeQtNoReturn() {
    const velnor::HostState state;
    // Claimed first: the instance exists already while it is still being constructed.
    if (startUpClaimed.exchange(true)) {
        return;
    }
    if (QCoreApplication::instance() != nullptr) {
        qtStarted = 1;
    } else if (environmentIsTrusted() && velnor::descriptorsAreFree(DescriptorsOfStartUp)) {
        velnor::guarded(velnor::Failure, [] {
            runOwnApplication();
            return velnor::Success;
        });
    }
    startUpClaimed = false;
}

int xmlToImgQtInitialized() {
    const auto isUp = [] { return QCoreApplication::instance() != nullptr && qtStarted != 0; };
    if (!isUp()) {
        return 0;
    }
    const velnor::HostState state;
    usleep(StartUpPause);
    const velnor::CallInFlight untilAllIsMade;
    // Start-up fails where memory runs out before all is made.
    return !untilAllIsMade.isRefused() && isUp() ? 1 : 0;
}

int xmlToImgSetPluginPathUnicode(const unsigned short* path, int length) {
    return velnor::hostCall(velnor::Failure, [&] {
        QCoreApplication::addLibraryPath(QString::fromUtf16(path, length));
        return velnor::Success;
    });
}
