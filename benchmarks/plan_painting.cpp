#include "plan.h"

#include <QPainter>

#include <zint.h>

#include <cstring>
#include <memory>

namespace bench {

namespace {

constexpr int DotsPerMetreAt96Dpi = 3780; // fonts are sized by it

struct SymbolDeleter {
    void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};
using SymbolPointer = std::unique_ptr<zint_symbol, SymbolDeleter>;

QImage symbolPicture(const BarcodeStep& step) {
    const SymbolPointer symbol(ZBarcode_Create());
    symbol->symbology = step.symbology;
    symbol->input_mode = step.inputMode;
    symbol->show_hrt = step.showText ? 1 : 0;
    symbol->height = step.height;
    symbol->scale = step.scale;
    symbol->option_1 = step.options[0];
    symbol->option_2 = step.options[1];
    symbol->option_3 = step.options[2];
    std::strncpy(symbol->primary, step.primary.constData(), sizeof symbol->primary - 1);
    const auto* data = reinterpret_cast<const unsigned char*>(step.data.constData());
    if (ZBarcode_Encode(symbol.get(), data, step.data.size()) >= ZINT_ERROR ||
        ZBarcode_Buffer(symbol.get(), 0) != 0) {
        return {};
    }
    const QImage dots(symbol->bitmap, symbol->bitmap_width, symbol->bitmap_height,
                      symbol->bitmap_width * 3, QImage::Format_RGB888);
    // One bit a dot, as barcodes come in files: turned by odd angles, other depths get other dots.
    return dots.convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::ThresholdDither);
}

void paint(QPainter& painter, const TextStep& step) {
    painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.setFont(step.font);
    painter.drawText(step.box, step.flags, step.text);
}

void paint(QPainter& painter, const PictureStep& step) {
    QImage picture(step.file);
    if (picture.size() != step.kept) {
        picture = picture.copy(QRect(QPoint(0, 0), step.kept));
    }
    painter.drawImage(step.position, picture);
}

void paint(QPainter& painter, const BarcodeStep& step) {
    painter.drawImage(step.position, symbolPicture(step));
}

void paint(QPainter& painter, const ShapeStep& step) {
    painter.setRenderHint(QPainter::Antialiasing, step.antialiased);
    painter.setPen(step.pen);
    if (step.kind == ShapeStep::Line) {
        painter.drawLine(step.line);
    } else if (step.kind == ShapeStep::Ellipse) {
        painter.drawEllipse(step.box);
    } else if (step.radius > 0) {
        painter.drawRoundedRect(step.box, step.radius, step.radius, Qt::AbsoluteSize);
    } else {
        painter.drawRect(step.box);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

// What lies inside the margins: nothing else is painted on.
QImage insideOf(QImage& picture, const QMargins& margins) {
    const QRect inside = picture.rect().marginsRemoved(margins);
    auto* row = reinterpret_cast<QRgb*>(picture.scanLine(inside.top()));
    return {reinterpret_cast<uchar*>(row + inside.left()), inside.width(), inside.height(),
            picture.bytesPerLine(), picture.format()};
}

void setDotsPerMetre(QImage& picture, int dotsPerMetre) {
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
}

} // namespace

QImage paintPlan(const Plan& plan) {
    QImage picture(plan.size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    QImage surface = insideOf(picture, plan.margins);
    setDotsPerMetre(surface, DotsPerMetreAt96Dpi);
    QPainter painter(&surface);
    painter.setRenderHint(QPainter::Qt4CompatiblePainting);
    for (const Step& step : plan.steps) {
        std::visit(
            [&painter](const auto& record) {
                painter.setTransform(record.transform);
                paint(painter, record);
            },
            step);
    }
    painter.end();
    setDotsPerMetre(picture, plan.dotsPerMetre);
    return picture;
}

} // namespace bench
