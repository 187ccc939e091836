// Files that the library reads: documents, parameter files, pictures, fonts.
#ifndef VELNOR_FILES_INPUT_FILE_H
#define VELNOR_FILES_INPUT_FILE_H

#include <QFile>

namespace velnor {

class InputFile : public QFile {
public:
    explicit InputFile(QString path) : name(std::move(path)) {}

    // Whether the name leads to anything: a folder and a pipe exist too, and are not opened. Qt would
    // print a message on a name with a zero character.
    static bool exists(const QString& name);

    // Opens the file for reading, on the disk or in the resources of a Qt host. False for what is no
    // regular file (a pipe would block the host, a device may have no end), for what is larger than so
    // many bytes, and for what cannot be opened.
    bool openUpTo(qint64 maximumSize, OpenMode mode = ReadOnly);

    // Qt looks at the name's suffix for the format of a picture.
    QString fileName() const override { return name; }

private:
    bool openOnDisk(const QString& path, qint64 maximumSize, OpenMode mode);

    QString name;
};

} // namespace velnor

#endif
