#include "handler/velnorxml.h"

VelnorXml::VelnorXml(const char* documentFile, const char* imageDir, const char* fontDir)
    : documentPath(QString::fromUtf8(documentFile)), imageDirectory(QString::fromUtf8(imageDir)),
      fontDirectory(QString::fromUtf8(fontDir)) {
    addEmbeddedFonts();
}

VelnorXml::~VelnorXml() {
    try {
        removeEmbeddedFonts();
    } catch (...) { // without memory the rest of the fonts stay registered
    }
}
