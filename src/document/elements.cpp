#include "document/elements.h"

void velnor::ElementDeleter::operator()(VelnorDrawableElement* element) const {
    if (!visitItem(*element, [](auto& record) { delete &record; })) {
        delete element;
    }
}

void VelnorDrawableCanvas::PrintInfo() const {
    if (!items) {
        return;
    }
    for (const auto& item : *items) {
        velnor::visitItem(*item, [](const auto& record) { record.PrintInfo(); });
    }
}
