// Picture files for tests, sound and hostile ones.
#ifndef VELNOR_TESTS_PICTURE_FILES_H
#define VELNOR_TESTS_PICTURE_FILES_H

#include "support/scratch_folder.h"

#include <QImage>

// Writes the picture as a PNG file into the folder and returns its path.
QString writePicture(const ScratchFolder& folder, const QString& name, const QImage& picture);

// A picture of which every dot has a colour of its own, so that no two parts of it look alike.
QImage colourfulPicture(int width, int height);

// The bytes of a PNG file whose header announces a size that a few bytes of data cannot fill.
QByteArray pngThatAnnounces(quint32 width, quint32 height);

// The bytes of an icon that announces 16 x 16 dots and holds one picture: a PNG file, or a bitmap
// without the header of its file.
QByteArray iconOf(const QByteArray& picture);

#endif
