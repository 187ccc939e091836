// One font file that this library registered with the font database of the process.
#ifndef VELNOR_HANDLER_FONT_ITEM_H
#define VELNOR_HANDLER_FONT_ITEM_H

#include <QString>
#include <QtGlobal>

#include <utility>

class FontItem {
public:
    FontItem(QString fileName, int fontId, int fileSize)
        : name(std::move(fileName)), id(fontId), size(fileSize) {}

    QString name; // without its directory
    qint32 id;    // as the font database gave it
    qint32 size;  // of the file in bytes, narrowed to 32 bits
    qint32 present = 1;
};

#endif
