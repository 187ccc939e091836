// A folder of its own for a test, removed with everything in it when the test ends.
#ifndef VELNOR_TESTS_SCRATCH_FOLDER_H
#define VELNOR_TESTS_SCRATCH_FOLDER_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class ScratchFolder {
public:
    ScratchFolder();

    // The path of `name` inside the folder; the file need not exist.
    QString path(const QString& name) const;
    QByteArray utf8Path(const QString& name) const;
    // Writes a file (its folders are made) and returns its path.
    QString write(const QString& name, const QByteArray& content) const;
    // The names of the files in the folder, sorted.
    QStringList files() const;

private:
    QTemporaryDir folder;
};

#endif
