// A folder that nobody else has, for a picture that is not finished.
#ifndef VELNOR_TOOL_FRESH_FOLDER_H
#define VELNOR_TOOL_FRESH_FOLDER_H

#include <QTemporaryDir>

#include <array>
#include <csignal>

namespace tool {

// Keeps SIGHUP, SIGINT and SIGTERM until it is destroyed. Then they have their effect.
class HeldSignals {
public:
    HeldSignals();
    ~HeldSignals();
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

private:
    std::array<struct sigaction, 3> earlier{};
};

// Removed with all that it holds at the end, also when a signal would end the process: nothing is
// done here that takes long.
class FreshFolder {
public:
    // Among the temporary files of the system.
    FreshFolder();

    // Inside another folder, so that a file can be renamed from here to there. Fails with NotWritten.
    explicit FreshFolder(const QString& parent);

    QString filePath(const QString& name) const { return folder.filePath(name); }

private:
    HeldSignals signalsHeld; // released after the folder is gone
    QTemporaryDir folder;
};

} // namespace tool

#endif
