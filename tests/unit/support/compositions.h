// A canvas drawn into a file of a folder of its own, and read back.
#ifndef VELNOR_TESTS_COMPOSITIONS_H
#define VELNOR_TESTS_COMPOSITIONS_H

#include "support/canvases.h"
#include "support/scratch_folder.h"

#include <QImage>

#include <gtest/gtest.h>

class Composition : public testing::Test {
protected:
    // Draws the canvas; the result of the operation must be 0.
    void compose(VelnorDrawableCanvas& canvas) const;
    // Draws the canvas and reads the picture that was written; null when none was.
    QImage composed(VelnorDrawableCanvas& canvas) const;
    // The same with the canvas of the test.
    QImage composed() const { return composed(*canvas); }

    QString outputPath() const { return folder.path(QStringLiteral("ticket.png")); }
    QString barcodePath() const { return outputPath() + QLatin1String(".BARCODE.PNG"); }
    QByteArray outputBytes() const;

    ScratchFolder folder;
    CanvasPointer canvas = makeCanvas(300, 200);
};

#endif
