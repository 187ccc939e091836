// What drawing is compared with: a white picture like a new surface, and Qt's painter alone.
#ifndef VELNOR_TESTS_WHITE_SURFACE_H
#define VELNOR_TESTS_WHITE_SURFACE_H

#include <QImage>
#include <QPainter>

QImage whiteSurface(int width, int height);

// A painter with the one render hint that all drawing shares.
class PlainPainter : public QPainter {
public:
    explicit PlainPainter(QImage& picture) : QPainter(&picture) {
        setRenderHint(QPainter::Qt4CompatiblePainting);
    }
};

#endif
