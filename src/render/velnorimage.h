// The drawing surface: one raster image, the font of the text being drawn, and what the last
// drawing covered. One class, several subjects: each group names the file that defines its
// members. Positions and lengths are dots, angles whole degrees clockwise about the position.
#ifndef VELNOR_RENDER_VELNORIMAGE_H
#define VELNOR_RENDER_VELNORIMAGE_H

#include <QFont>
#include <QImage>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QTransform>

#include <memory>

class QPainter;
class VelnorDrawableCanvas;
class VelnorDrawableElement;

namespace velnor {
class Sheet;
}

class VelnorImage {
public:
    // Measuring needs texts alone: Qt's cache of letters must hold the same letters after it,
    // whatever the process drew before. What other items cover is known without painting them.
    enum class Painting { Everything, TextsAlone };

    // render/surface.cpp
    VelnorImage(int width, int height);
    VelnorImage(std::shared_ptr<velnor::Sheet> drawnSheet, Painting what);
    ~VelnorImage();
    VelnorImage(const VelnorImage&) = delete;
    VelnorImage& operator=(const VelnorImage&) = delete;
    int CreateBaseEmptyImage(int width, int height);
    int CreateBaseImage(const char* path);
    int ResizeImage(int width, int height);
    void SetCropAtCurrentY(bool crop);
    int getCurrentY() const;
    void setCurrentY(int y);
    bool canBeDrawnOn() const;

    // render/output.cpp
    // The picture as a file holds it: cropped, in its margins, with the resolution.
    QImage finishedPicture(int dpi, int left, int top, int right, int bottom) const;
    // Both save operations give -1 when the file was written and 0 when the writer failed.
    static int addRollMargin(int y, int dpi);
    static QImage ApplyMarginsToImage(const QImage& source, int left, int top, int right,
                                      int bottom);
    int SaveImage(const char* fileName, int dpi, int left, int top, int right, int bottom) const;
    int SaveImageBmp(const char* fileName, int dpi, int left, int top, int right, int bottom) const;

    // render/composition.cpp
    static int CreateImageFromCanvas(VelnorDrawableCanvas* canvas, const char* fileName);
    static int CalculateBoundingBoxForItems(VelnorDrawableCanvas* canvas, const char* fileName);
    static VelnorDrawableElement* GetElemFromId(const VelnorDrawableCanvas* canvas,
                                                const QString& id);
    static bool getAntialias(bool itemFlag, int canvasMode);

    // render/grid_layout.cpp
    static int CalculateRowLength(VelnorDrawableCanvas* canvas);
    static int CalculateColumnLength(VelnorDrawableCanvas* canvas);
    static int FixCanvasRow(VelnorDrawableCanvas* canvas);
    static int FixCanvasColumn(VelnorDrawableCanvas* canvas);
    static int getYFromAnchor(int anchor, int top, int y, int fallback);
    static int getXfromAnchor(int anchor, int left, int right, int x, int xr, int* width,
                              int fallback);

    // render/transform.cpp
    static QTransform TransformScaleRotate(int centreX, int centreY, double factorX, double factorY,
                                           int rotation);
    static QTransform TransformScaleRotate(int centreX, int centreY, int percentX, int percentY,
                                           int rotation);
    static QRectF GetBoundingRectUsingTransform(const QRectF& rectangle,
                                                const QTransform& transform);

    // The drawing operations give 0 when they drew and -1 when there is nothing to draw on.
    // render/images.cpp
    int DrawOverlayImage(const QString& path, int x, int y, int scalex, int scaley, int width,
                         int height, int rotation, int aspect);
    int DrawOverlayPicture(QImage picture, int x, int y, int scalex, int scaley, int width,
                           int height, int rotation, int aspect);
    static void FixImageScaling(QImage* image, int scalex, int scaley, int width, int height,
                                double* factorX, double* factorY, int aspect);

    // render/shapes.cpp
    int DrawOverlayRectangle(int x, int y, int width, int height, int rotation, int thickness,
                             int style, int radius, bool antialias);
    int DrawOverlayEllipse(int x, int y, int width, int height, int rotation, int thickness,
                           int style, bool antialias);
    int DrawOverlayLine(int x, int y, int width, int height, int rotation, int thickness, int style,
                        int length, bool antialias);

    // render/text.cpp
    int SetFont(const QString& family, int size, int dpi, bool bold, bool italic, bool antialias);
    static int ConvertToPoints(int size, int dpi);
    static double pointsOnPaper(double surfacePoints, int dpi);
    int DrawOverlayText(const QString& text, int x, int y, int rotation);
    int DrawOverlayLineBoundedText(const QString& text, int x, int y, int width, int flags,
                                   int rotation);
    int DrawOverlayRectBoundedText(const QString& text, int x, int y, int width, int height,
                                   int flags, int rotation);
    int DrawOverlayTextGeneric(const QString& text, int x, int y, int rotation, int width,
                               int height, int flags);

    // render/text_fit.cpp
    // Gives the width, or -1 where the text is too long to be shrunk until it fits.
    static int adaptFontSize(QPainter* painter, int flags, const QRectF& box, const QString& text,
                             QFont font);

    // render/font_list.cpp
    static QStringList ListAvailableFont();
    static char* GetAvailableFont(); // made with new[]; null when there are no fonts

    const QImage* picture() const { return image.get(); }
    const QFont* currentFont() const { return font.get(); }
    const QRectF& lastBoundingRect() const { return boundingRect; }
    // In points of the surface; 0 when the text was not drawn.
    double lastTextSize() const { return textSize; }

private:
    // render/surface.cpp
    void recordCoverage(const QRectF& box, const QTransform& transform);

    // render/transform.cpp
    static double factorFromPercent(int percent);
    static QTransform rotationAbout(const QPoint& position, int rotation);

    // render/output.cpp
    int keptRows(int dpi) const;
    QImage keptPicture(int rows) const;

    // render/shapes.cpp
    template <typename Draw>
    int drawShape(const QPoint& position, const QSizeF& size, const QRectF& path, int rotation,
                  int thickness, int style, bool antialias, Draw draw);

    Painting painting = Painting::Everything;
    std::shared_ptr<velnor::Sheet> sheet; // null for a surface without one
    bool cropAtCurrentY = false;
    std::unique_ptr<QImage> image;
    std::unique_ptr<QFont> font;
    int currentY = 0;
    QRectF boundingRect;
    double textSize = 0;
};

#endif
