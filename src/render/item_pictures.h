// The pictures that items show, made once for both passes.
#ifndef VELNOR_RENDER_ITEM_PICTURES_H
#define VELNOR_RENDER_ITEM_PICTURES_H

#include "document/elements.h"

#include <QHash>
#include <QImage>

#include <optional>

namespace velnor {

// Pictures are kept up to MaximumKeptPictures together; those beyond are made again when they are
// asked for again.
class ItemPictures {
public:
    // Nothing where there is no such file; a null image where it is no picture.
    std::optional<QImage> ofFile(const QString& path);

    // Nothing where the data make no symbol.
    std::optional<QImage> ofBarcode(const VelnorDrawableBarcode& item);

private:
    template <typename Key, typename Make>
    QImage keptOrMade(QHash<Key, QImage>& kept, const Key& key, Make make);

    QHash<QString, QImage> files;
    QHash<const VelnorDrawableBarcode*, QImage> barcodes;
    qint64 keptBytes = 0;
};

} // namespace velnor

#endif
