#include "font_folders.h"

#include "support/font_files.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPainter>

FontFolders::~FontFolders() {
    VelnorXml::embeddedFontKeepFlag = false;
    VelnorXml::removeEmbeddedFonts();
}

void FontFolders::writeFont(const char* name, const QByteArray& content) const {
    scratch.write(QLatin1String("fonts/") + QLatin1String(name), content);
}

void FontFolders::removeFont(const char* name) const {
    ASSERT_TRUE(QFile::remove(scratch.path(QLatin1String("fonts/") + QLatin1String(name))));
}

std::unique_ptr<VelnorXml> FontFolders::handler() const {
    const QByteArray path = scratch.utf8Path(QStringLiteral("layout.xml"));
    return std::make_unique<VelnorXml>(path.constData(), nullptr, nullptr);
}

std::unique_ptr<VelnorXml> FontFolders::handlerOf(const char* folder) const {
    const QByteArray path = scratch.utf8Path(QLatin1String(folder));
    return std::make_unique<VelnorXml>("layout.xml", nullptr, path.constData());
}

std::vector<std::string> listedNames() {
    std::vector<std::string> names;
    for (const FontItem* font : *VelnorXml::embeddedFontIdList) {
        names.push_back(font->name.toStdString());
    }
    return names;
}

bool databaseHas(const char* brand) {
    return QFontDatabase().families().contains(familyOfBrand(brand));
}

QString familyDrawnFor(const char* brand) {
    return QFontInfo(QFont(familyOfBrand(brand))).family();
}

QImage drawnText(const char* brand, const char* text) {
    QImage picture(300, 60, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setFont(QFont(familyOfBrand(brand), 24));
    painter.drawText(5, 40, QLatin1String(text));
    return picture;
}
