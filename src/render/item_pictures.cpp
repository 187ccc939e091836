#include "render/item_pictures.h"

#include "files/input_file.h"
#include "library_limits.h"
#include "render/barcode_item.h"
#include "render/picture_file.h"

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
    if (!InputFile::exists(path)) {
        return {};
    }
    return keptOrMade(files, path, [&path] { return loadPicture(path); });
}

std::optional<QImage> velnor::ItemPictures::ofBarcode(const VelnorDrawableBarcode& item) {
    const QImage symbol = keptOrMade(barcodes, &item, [&item] { return symbolOf(item).picture; });
    return symbol.isNull() ? std::nullopt : std::optional<QImage>(symbol);
}
