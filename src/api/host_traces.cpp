#include "api/host_traces.h"

#include "api/application_gate.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTextCodec>

#include <array>
#include <atomic>
#include <clocale>
#include <thread>

#include <dlfcn.h>
#include <pwd.h>
#include <unistd.h>

namespace {

std::atomic<QtMessageHandler> hostMessageHandler{nullptr};

// Null on other threads, and once the locale was restored.
thread_local const velnor::LocaleKeeper* keeperOfThread = nullptr;

void dropWarningsOfCalls(QtMsgType type, const QMessageLogContext& context,
                         const QString& message) {
    if (type != QtDebugMsg && type != QtFatalMsg && velnor::FlightCount::isOnThisThread()) {
        return;
    }
    // Another thread's message may come between the installation and the answer to it.
    while (hostMessageHandler == nullptr) {
        std::this_thread::yield();
    }
    hostMessageHandler.load()(type, context, message);
}

void putHostMessageHandlerBack() {
    const QtMessageHandler current = qInstallMessageHandler(hostMessageHandler);
    if (current != dropWarningsOfCalls) {
        qInstallMessageHandler(current); // the host has installed another one meanwhile
    }
}

// Qt's default has no name. To install it for a moment, which would tell, could lose a message.
bool isHandlerOfQt(QtMessageHandler handler) {
    Dl_info ofHandler{};
    Dl_info ofQt{};
    return dladdr(reinterpret_cast<void*>(handler), &ofHandler) != 0 &&
           dladdr(qVersion(), &ofQt) != 0 && ofHandler.dli_fbase == ofQt.dli_fbase;
}

// The folder that the environment names, or that Qt makes up for the user of this process.
QByteArray runtimeFolder() {
    QByteArray named = qgetenv("XDG_RUNTIME_DIR");
    if (!named.isEmpty()) {
        return named;
    }
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* user = nullptr;
    getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &user);
    const QString name = user != nullptr ? QString::fromLocal8Bit(user->pw_name) : QString();
    return QFile::encodeName(QDir::tempPath() + QLatin1String("/runtime-") + name);
}

} // namespace

velnor::LocaleKeeper::LocaleKeeper() : hostLocale(std::setlocale(LC_ALL, nullptr)) {
    keeperOfThread = this;
    QInternal::registerCallback(QInternal::EventNotifyCallback, restoreAtEvent);
}

velnor::LocaleKeeper::~LocaleKeeper() {
    QInternal::unregisterCallback(QInternal::EventNotifyCallback, restoreAtEvent);
    keeperOfThread = nullptr;
    restore();
}

// Qt asks for every event of the process whether it is to be sent: not where this gives true.
bool velnor::LocaleKeeper::restoreAtEvent(void**) {
    if (keeperOfThread != nullptr) {
        keeperOfThread->restore();
        keeperOfThread = nullptr;
    }
    return false;
}

void velnor::LocaleKeeper::restore() const {
    std::setlocale(LC_ALL, hostLocale.constData());
}

velnor::MessageFilter::MessageFilter() {
    hostMessageHandler = nullptr;
    hostMessageHandler = qInstallMessageHandler(dropWarningsOfCalls);
}

velnor::MessageFilter::~MessageFilter() {
    putHostMessageHandlerBack();
}

void velnor::MessageFilter::leaveToHost() {
    if (!isHandlerOfQt(hostMessageHandler)) {
        putHostMessageHandlerBack();
    }
}

velnor::RuntimeFolderKeeper::RuntimeFolderKeeper() {
    const QByteArray folder = runtimeFolder();
    if (access(folder.constData(), F_OK) != 0) {
        newFolder = folder;
    }
}

velnor::RuntimeFolderKeeper::~RuntimeFolderKeeper() {
    if (!newFolder.isEmpty()) {
        rmdir(newFolder.constData());
    }
}

velnor::AttributeKeeper::AttributeKeeper(Qt::ApplicationAttribute kept)
    : attribute(kept), hostValue(QCoreApplication::testAttribute(kept)) {}

velnor::AttributeKeeper::~AttributeKeeper() {
    QCoreApplication::setAttribute(attribute, hostValue);
}

velnor::LocaleCodecKeeper::LocaleCodecKeeper() : hostCodec(QTextCodec::codecForLocale()) {
    QTextCodec::setCodecForLocale(nullptr);
    if (QTextCodec::codecForLocale() == hostCodec) {
        hostCodec = nullptr; // Qt's default, which depends on the locale of the time
    }
}

velnor::LocaleCodecKeeper::~LocaleCodecKeeper() {
    QTextCodec::setCodecForLocale(hostCodec);
}
