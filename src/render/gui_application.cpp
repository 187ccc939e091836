#include "render/gui_application.h"

#include <QGuiApplication>

#include <atomic>
#include <optional>

namespace {

std::atomic<bool> notReady{false};
thread_local std::optional<bool> keptAnswer;

bool canBeUsed() {
    return !notReady && qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace

bool velnor::guiApplicationExists() {
    return keptAnswer ? *keptAnswer : canBeUsed();
}

velnor::GuiApplicationNotReady::GuiApplicationNotReady() {
    notReady = true;
}

velnor::GuiApplicationNotReady::~GuiApplicationNotReady() {
    notReady = false;
}

velnor::GuiApplicationAnswer::GuiApplicationAnswer() : outermost(!keptAnswer) {
    if (outermost) {
        keptAnswer = canBeUsed();
    }
}

velnor::GuiApplicationAnswer::~GuiApplicationAnswer() {
    if (outermost) {
        keptAnswer.reset();
    }
}
