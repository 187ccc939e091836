#include "support/drawing.h"

#include "support/scratch_folder.h"

#include <velnorxmltoimg.h>

#include <QPainter>

#include <memory>
#include <stdexcept>

namespace {

struct HandlerDeleter {
    void operator()(void* handler) const { xmlToImgFreeHandler(handler); }
};

QImage copiedToWhite(const QImage& picture, const QSize& size, const QPoint& place) {
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::white);
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(place, picture);
    return result;
}

} // namespace

QImage drawn(const Document& document) {
    const ScratchFolder folder;
    const QByteArray layout = folder.write(QStringLiteral("layout.xml"), document.xml()).toUtf8();
    const QString output = folder.path(QStringLiteral("picture.png"));
    const std::unique_ptr<void, HandlerDeleter> handler(
        xmlToImgCreateHandlerWithDirs(layout.constData(), VELNOR_TEST_IMAGES, VELNOR_TEST_FONTS));
    xmlToImgCreateImage(handler.get(), output.toUtf8().constData());
    QImage picture(output);
    if (picture.isNull()) {
        throw std::runtime_error("no picture of " + document.xml().toStdString());
    }
    return picture;
}

Document with(Document document, const Item& item) {
    document.items.push_back(item);
    return document;
}

Document withOnly(Document document, const Item& item) {
    document.items = {item};
    return document;
}

QImage pushed(const QImage& picture, int dx, int dy) {
    return copiedToWhite(picture, picture.size(), QPoint(dx, dy));
}

QImage framed(const QImage& picture, const QMargins& margins) {
    return copiedToWhite(picture, picture.rect().marginsAdded(margins).size(),
                         QPoint(margins.left(), margins.top()));
}
