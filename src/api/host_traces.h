// What making a Qt application would leave changed in the host, put back.
#ifndef VELNOR_API_HOST_TRACES_H
#define VELNOR_API_HOST_TRACES_H

#include <QByteArray>

class QTextCodec;

namespace velnor {

// Qt's application takes the environment's locale for the whole process, where other threads format
// and read numbers. While this lives, the host's locale is put back as soon as Qt has changed it: at
// the first event, which Qt sends before it loads its platform.
class LocaleKeeper {
public:
    LocaleKeeper();
    ~LocaleKeeper();
    LocaleKeeper(const LocaleKeeper&) = delete;
    LocaleKeeper& operator=(const LocaleKeeper&) = delete;

private:
    static bool restoreAtEvent(void** event);
    void restore() const;

    QByteArray hostLocale;
};

// While this lives, warnings of Qt and libjpeg on threads inside a call are dropped: by default they
// would go to standard error, or to the file that has its number where the host has closed it. Debug
// messages, which somebody has asked for, and messages of other threads go where they went.
class MessageFilter {
public:
    MessageFilter();
    ~MessageFilter();
    MessageFilter(const MessageFilter&) = delete;
    MessageFilter& operator=(const MessageFilter&) = delete;

    // Ends the filter early where the host has a message handler of its own.
    void leaveToHost();
};

// Qt makes the folder that XDG_RUNTIME_DIR names, or one in its place where that is unset. When this
// goes, a folder that was not there before goes too.
class RuntimeFolderKeeper {
public:
    RuntimeFolderKeeper();
    ~RuntimeFolderKeeper();
    RuntimeFolderKeeper(const RuntimeFolderKeeper&) = delete;
    RuntimeFolderKeeper& operator=(const RuntimeFolderKeeper&) = delete;

private:
    QByteArray newFolder; // empty when the folder was there before
};

// Restores an attribute of the application to the host's value.
class AttributeKeeper {
public:
    explicit AttributeKeeper(Qt::ApplicationAttribute kept);
    ~AttributeKeeper();
    AttributeKeeper(const AttributeKeeper&) = delete;
    AttributeKeeper& operator=(const AttributeKeeper&) = delete;

private:
    Qt::ApplicationAttribute attribute;
    bool hostValue;
};

// Restores the codec that Qt uses for the locale: the host's, or Qt's default if the host set none.
class LocaleCodecKeeper {
public:
    LocaleCodecKeeper();
    ~LocaleCodecKeeper();
    LocaleCodecKeeper(const LocaleCodecKeeper&) = delete;
    LocaleCodecKeeper& operator=(const LocaleCodecKeeper&) = delete;

private:
    QTextCodec* hostCodec;
};

} // namespace velnor

#endif
