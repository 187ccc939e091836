// A picture as a list of drawing steps: positions, fonts and final text sizes are known beforehand.
// What a Qt programmer would write by hand for one printout, with nothing of the library in it.
#ifndef VELNOR_BENCHMARKS_PLAN_H
#define VELNOR_BENCHMARKS_PLAN_H

#include <QByteArray>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QMargins>
#include <QPen>
#include <QRectF>
#include <QString>
#include <QTransform>

#include <array>
#include <variant>
#include <vector>

namespace bench {

struct TextStep {
    QString text;
    QFont font;
    QRectF box;
    int flags = 0;
    QTransform transform;
};

struct PictureStep {
    QString file;
    QSize kept; // the part that is shown, from the top left
    QPoint position;
    QTransform transform;
};

struct BarcodeStep {
    int symbology = 0;
    int inputMode = 0;
    bool showText = false;
    float height = 0; // of the bars in modules, 0: the symbology's own
    float scale = 1;
    std::array<int, 3> options{};
    QByteArray primary;
    QByteArray data;
    QPoint position;
    QTransform transform;
};

struct ShapeStep {
    enum Kind { Rectangle, Ellipse, Line };

    int kind = Rectangle;
    QRectF box;
    int radius = 0;
    QLineF line;
    QPen pen;
    bool antialiased = false;
    QTransform transform;
};

using Step = std::variant<TextStep, PictureStep, BarcodeStep, ShapeStep>;

struct Plan {
    QSize size; // of the finished picture
    QMargins margins;
    int dotsPerMetre = 0;
    std::vector<Step> steps;
};

// False where the file cannot be written or read, or holds no plan.
bool writePlan(const QString& file, const Plan& plan);
bool readPlan(const QString& file, Plan& plan);

// plan_painting.cpp: the finished picture, painted in one pass by one painter.
QImage paintPlan(const Plan& plan);

} // namespace bench

#endif
