#include "qt_host.h"

#include "failure.h"

#include <velnorxmltoimg.h>

#include <QGuiApplication>
#include <QTextCodec>

#include <clocale>
#include <cstdlib>
#include <iostream>

namespace {

// As the library's own application is made, so that the same dots arise.
int argumentCount = 5;
char programName[] = "velnorxmltoimg";
char platformOption[] = "-platform";
char platformName[] = "offscreen";
char themeOption[] = "-platformtheme";
char noTheme[] = "";
char* arguments[] = {programName, platformOption, platformName, themeOption, noTheme, nullptr};

// Complaints of Qt are about its surroundings. What matters to the user is told by the commands.
void receiveMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) {
        std::cerr << "velnorxmltoimg: Qt cannot start: " << message.toStdString() << std::endl;
        std::_Exit(static_cast<int>(tool::ExitCode::NotWritten));
    }
}

// Qt would make a folder for it in the folder of temporary files, and leave it there.
void keepQtFromMakingARuntimeFolder() {
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", "/nonexistent");
    }
}

} // namespace

tool::QtHost::QtHost() {
    qInstallMessageHandler(receiveMessage);
    keepQtFromMakingARuntimeFolder();
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    application = std::make_unique<QGuiApplication>(argumentCount, arguments);
    std::setlocale(LC_ALL, "C"); // printouts do not depend on the language of the user
    xmlToImgInitializeQtNoReturn();
}

tool::QtHost::~QtHost() = default;
