#include "render/gui_application.h"

#include <QGuiApplication>

bool velnor::guiApplicationExists() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}
