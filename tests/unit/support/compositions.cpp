#include "support/compositions.h"

#include "render/velnorimage.h"

#include <QFile>

void Composition::compose(VelnorDrawableCanvas& drawn) const {
    QFile::remove(outputPath());
    EXPECT_EQ(VelnorImage::CreateImageFromCanvas(&drawn, outputPath().toUtf8().constData()), 0);
}

QImage Composition::composed(VelnorDrawableCanvas& drawn) const {
    compose(drawn);
    return QFile::exists(outputPath()) ? QImage(outputPath()) : QImage();
}

QByteArray Composition::outputBytes() const {
    QFile file(outputPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
