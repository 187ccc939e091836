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

// While this lives, Qt's remarks on its start-up are kept off the host's standard error.
class StartUpSilencer {
public:
    StartUpSilencer();
    ~StartUpSilencer();
    StartUpSilencer(const StartUpSilencer&) = delete;
    StartUpSilencer& operator=(const StartUpSilencer&) = delete;
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
