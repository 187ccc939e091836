// The class members that hosts see. They stand with the interface, so that a program that links the
// engine's objects beside the library shares the library's.
#include "handler/velnorxml.h"

bool VelnorXml::embeddedFontKeepFlag = false;
QList<FontItem*>* VelnorXml::embeddedFontIdList = nullptr;
