// The same surroundings on every machine: fonts.conf in the place of the machine's fonts, and a
// scratch folder for whatever is written.
#ifndef VELNOR_GOLDEN_ISOLATION_H
#define VELNOR_GOLDEN_ISOLATION_H

#include <QString>
#include <QTemporaryDir>

namespace golden {

class Isolation {
public:
    // Sets environment variables: to be made before the first other thread.
    Isolation();

    QString path(const QString& name) const { return folder.filePath(name); }

private:
    QTemporaryDir folder;
};

// Runs the library's Qt application on a thread of its own.
void startLibrary();

} // namespace golden

#endif
