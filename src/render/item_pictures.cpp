#include "render/item_pictures.h"

#include "library_limits.h"
#include "render/picture_file.h"
#include "render/velnorbarcode.h"

#include <QFile>

namespace {

QImage symbolOf(const VelnorDrawableBarcode& item) {
    QImage symbol;
    VelnorBarcode().CreateBarcode(item.barcodeType, item.hrt, item.text.toUtf8().constData(),
                                  item.inputmode, item.primary.toUtf8().constData(), item.option1,
                                  item.option2, item.option3, &symbol, item.width, item.height);
    return symbol;
}

} // namespace

template <typename Key, typename Make>
QImage velnor::ItemPictures::keptOrMade(QHash<Key, QImage>& kept, const Key& key, Make make) {
    const auto found = kept.constFind(key);
    if (found != kept.constEnd()) {
        return *found;
    }
    QImage picture = make();
    if (keptBytes + picture.sizeInBytes() <= MaximumKeptPictures) {
        keptBytes += picture.sizeInBytes();
        kept.insert(key, picture);
    }
    return picture;
}

std::optional<QImage> velnor::ItemPictures::ofFile(const QString& path) {
    if (!QFile::exists(path)) {
        return {};
    }
    return keptOrMade(files, path, [&path] { return loadPicture(path); });
}

std::optional<QImage> velnor::ItemPictures::ofBarcode(const VelnorDrawableBarcode& item) {
    const QImage symbol = keptOrMade(barcodes, &item, [&item] { return symbolOf(item); });
    return symbol.isNull() ? std::nullopt : std::optional<QImage>(symbol);
}
