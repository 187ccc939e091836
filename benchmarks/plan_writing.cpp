#include "plan_writing.h"

#include "document/dots.h"
#include "document/elements.h"
#include "encodings.h"
#include "handler/velnorxml.h"
#include "render/velnorimage.h"

#include <QDir>
#include <QPainter>

#include <memory>
#include <stdexcept>

namespace bench {

namespace {

using CanvasPointer = std::unique_ptr<VelnorDrawableCanvas>;

// The measuring operation takes the name of the output file, beside which it may need others.
QByteArray scratchName() {
    return QDir::temp().filePath(QStringLiteral("plan.png")).toUtf8();
}

void measure(VelnorDrawableCanvas& canvas) {
    VelnorImage::CalculateBoundingBoxForItems(&canvas, scratchName().constData());
}

CanvasPointer laidOutCanvas(VelnorXml& handler) {
    VelnorDrawableCanvas* parsed = nullptr;
    if (handler.Parse(&parsed) != 0 || parsed == nullptr) {
        throw std::runtime_error("a document cannot be parsed");
    }
    CanvasPointer canvas(parsed);
    if (canvas->height == velnor::NotGiven) {
        canvas->height = velnor::roundToDots(canvas->dpi * 1000.0 / 25.4); // one metre of roll
    }
    measure(*canvas);
    VelnorImage::CalculateRowLength(canvas.get());
    VelnorImage::CalculateColumnLength(canvas.get());
    return canvas;
}

int angleOf(int rotation) {
    return rotation == velnor::NotGiven ? 0 : rotation;
}

QTransform turned(int x, int y, int rotation) {
    const int angle = angleOf(rotation);
    return angle == 0 ? QTransform() : VelnorImage::TransformScaleRotate(x, y, 100, 100, angle);
}

// Makes a step of each kind of item.
class StepWriter {
public:
    explicit StepWriter(VelnorDrawableCanvas& laidOut)
        : canvas(laidOut), endless(1000.0 * qMax(laidOut.width, laidOut.height)) {}

    Step operator()(const VelnorDrawableText& item);
    Step operator()(const VelnorDrawableImage& item);
    Step operator()(VelnorDrawableBarcode& item);

    Step operator()(const VelnorDrawableRectangle& item) {
        return shape(ShapeStep::Rectangle, item, item.radius, {});
    }

    Step operator()(const VelnorDrawableEllipse& item) {
        return shape(ShapeStep::Ellipse, item, 0, {});
    }

    Step operator()(const VelnorDrawableLine& item) {
        const double middle = item.y + item.thickness / 2.0;
        return shape(ShapeStep::Line, item, 0,
                     QLineF(item.x, middle, static_cast<double>(item.x) + item.length, middle));
    }

private:
    // The text's box and flags, and its font with its size once the text fits.
    void fit(const VelnorDrawableText& item, TextStep& step);
    Encoding encodingOf(VelnorDrawableBarcode& item);

    template <typename Shape>
    ShapeStep shape(ShapeStep::Kind kind, const Shape& item, int radius, const QLineF& line) {
        QPen pen(QBrush(Qt::black), qMax(item.thickness, 0), Qt::SolidLine, Qt::FlatCap,
                 Qt::MiterJoin);
        if (item.style != 0) {
            pen.setDashPattern({2.0, 1.0});
        }
        return {kind,
                QRectF(item.x, item.y, item.width, item.height),
                radius,
                line,
                pen,
                VelnorImage::getAntialias(false, canvas.antialiasShape),
                turned(item.x, item.y, item.rotation)};
    }

    VelnorDrawableCanvas& canvas;
    double endless;
    VelnorImage surface{1, 1};
};

void StepWriter::fit(const VelnorDrawableText& item, TextStep& step) {
    QImage dots = *surface.picture();
    QPainter painter(&dots);
    painter.setTransform(step.transform);
    painter.setFont(step.font);
    step.box = QRectF(item.x, item.y, item.width, item.height);
    step.flags = item.flags;
    const auto measured = [&] {
        return painter.boundingRect(step.box, step.flags, step.text).size();
    };
    if (item.width == velnor::NotGiven) {
        step.flags = (item.flags & ~0x0f) | Qt::AlignLeft;
        step.box.setSize(QSizeF(endless, step.font.pointSize()));
        step.box.setSize(measured());
        return;
    }
    const bool heightGiven = item.height != velnor::NotGiven;
    if (!heightGiven) {
        step.flags = (item.flags & ~(Qt::AlignTop | Qt::AlignBottom | Qt::AlignVCenter)) |
                     static_cast<int>(Qt::AlignTop);
        step.box.setHeight(endless);
        step.box.setHeight(measured().height());
    }
    VelnorImage::adaptFontSize(&painter, step.flags, step.box, step.text, painter.font());
    step.font.setPointSizeF(painter.font().pointSizeF());
    if (!heightGiven) {
        step.box.setHeight(measured().height());
    }
}

Step StepWriter::operator()(const VelnorDrawableText& item) {
    surface.SetFont(item.fontname, item.fontsize, canvas.dpi, item.bold, item.italic,
                    VelnorImage::getAntialias(item.antialias, canvas.antialiasText));
    TextStep step;
    step.text = item.text;
    step.font = *surface.currentFont();
    step.transform = turned(item.x, item.y, item.rotation);
    fit(item, step);
    return step;
}

Step StepWriter::operator()(const VelnorDrawableImage& item) {
    const int angle = angleOf(item.rotation);
    QImage picture(item.filepath);
    QTransform transform;
    const bool natural = angle == 0 && item.scalex == 100 && item.scaley == 100 &&
                         item.width == velnor::NotGiven && item.height == velnor::NotGiven;
    if (!natural) {
        double factorX = 1.0;
        double factorY = 1.0;
        VelnorImage::FixImageScaling(&picture, item.scalex, item.scaley, item.width, item.height,
                                     &factorX, &factorY, item.aspect);
        transform = VelnorImage::TransformScaleRotate(item.x, item.y, factorX, factorY, angle);
    }
    return PictureStep{item.filepath, picture.size(), QPoint(item.x, item.y), transform};
}

// The last encoding of a barcode that is measured alone is the one of its final size.
Encoding StepWriter::encodingOf(VelnorDrawableBarcode& item) {
    std::vector<int> hidden;
    for (const auto& each : *canvas.items) {
        hidden.push_back(each->hidden);
        each->hidden = each.get() == &item ? 0 : 1;
    }
    const EncodingRecorder recorder;
    measure(canvas);
    for (size_t i = 0; i < hidden.size(); ++i) {
        (*canvas.items)[i]->hidden = hidden[i];
    }
    if (recorder.encodings().empty()) {
        throw std::runtime_error("a barcode is not encoded");
    }
    return recorder.encodings().back();
}

Step StepWriter::operator()(VelnorDrawableBarcode& item) {
    const Encoding encoding = encodingOf(item);
    return BarcodeStep{encoding.symbology,     encoding.inputMode,
                       encoding.showText,      encoding.height,
                       encoding.scale,         encoding.options,
                       encoding.primary,       encoding.data,
                       QPoint(item.x, item.y), turned(item.x, item.y, item.rotation)};
}

} // namespace

Plan makePlan(VelnorXml& handler, const QImage& finished) {
    const CanvasPointer canvas = laidOutCanvas(handler);
    Plan plan;
    plan.size = finished.size();
    plan.margins = QMargins(canvas->x, canvas->y, canvas->xr, canvas->yb);
    plan.dotsPerMetre = finished.dotsPerMeterX();
    StepWriter writer(*canvas);
    for (const auto& item : *canvas->items) {
        if (velnor::isVisible(*item)) {
            velnor::visitItem(*item, [&](auto& record) { plan.steps.push_back(writer(record)); });
        }
    }
    return plan;
}

} // namespace bench
