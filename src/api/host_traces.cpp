#include "api/host_traces.h"

#include <QDir>
#include <QFile>
#include <QString>

#include <array>
#include <clocale>

#include <pwd.h>
#include <unistd.h>

namespace {

QtMessageHandler hostMessageHandler = nullptr;

void forwardOtherMessages(QtMsgType type, const QMessageLogContext& context,
                          const QString& message) {
    if (!message.startsWith(QLatin1String("QStandardPaths: "))) {
        hostMessageHandler(type, context, message);
    }
}

// The folder that Qt makes up for the user of this process.
QByteArray runtimeFolder() {
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* user = nullptr;
    getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &user);
    const QString name = user != nullptr ? QString::fromLocal8Bit(user->pw_name) : QString();
    return QFile::encodeName(QDir::tempPath() + QLatin1String("/runtime-") + name);
}

} // namespace

velnor::LocaleKeeper::LocaleKeeper() : hostLocale(std::setlocale(LC_ALL, nullptr)) {}

velnor::LocaleKeeper::~LocaleKeeper() {
    std::setlocale(LC_ALL, hostLocale.constData());
}

velnor::RuntimeFolderKeeper::RuntimeFolderKeeper() {
    const QByteArray folder = runtimeFolder();
    if (access(folder.constData(), F_OK) != 0) {
        newFolder = folder;
    }
    // In two steps: another thread may send a message at any time.
    hostMessageHandler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(forwardOtherMessages);
}

velnor::RuntimeFolderKeeper::~RuntimeFolderKeeper() {
    qInstallMessageHandler(hostMessageHandler);
    if (!newFolder.isEmpty()) {
        rmdir(newFolder.constData());
    }
}
