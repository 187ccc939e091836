#include "support/font_files.h"

#include <QFile>

#include <stdexcept>

namespace {

constexpr char BundledBrand[] = "Liberation";

QByteArray bundledFont(const QByteArray& style, int brandLength) {
    QFile file(QLatin1String(VELNOR_TEST_FONTS "/LiberationSans-") + QLatin1String(style) +
               QLatin1String(".ttf"));
    if (!file.open(QIODevice::ReadOnly) || brandLength != QByteArray(BundledBrand).size()) {
        throw std::runtime_error("no font can be made");
    }
    return file.readAll();
}

// The name table holds UTF-16 in big-endian order beside one-byte text.
QByteArray asUtf16(const QString& text) {
    QByteArray wide;
    for (const QChar unit : text) {
        wide.append(static_cast<char>(unit.row())).append(static_cast<char>(unit.cell()));
    }
    return wide;
}

} // namespace

QByteArray fontOfBrand(const QByteArray& brand, const QByteArray& style) {
    QByteArray font = bundledFont(style, brand.size());
    font.replace(QByteArray(BundledBrand), brand);
    font.replace(asUtf16(QLatin1String(BundledBrand)), asUtf16(QString::fromLatin1(brand)));
    return font;
}

QByteArray fontOfWideBrand(const QString& brand) {
    QByteArray font = bundledFont("Regular", brand.size());
    font.replace(asUtf16(QLatin1String(BundledBrand)), asUtf16(brand));
    return font;
}

QString familyOfBrand(const QByteArray& brand) {
    return QString::fromLatin1(brand) + QLatin1String(" Sans");
}
