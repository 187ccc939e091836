#include "batch/column_check.h"

#include "batch/column.h"
#include "engine/document_view.h"

#include <algorithm>

namespace {

using tool::ExitCode;
using tool::Failure;
using tool::Setting;

bool isTag(const Setting& setting) {
    return setting.kind == Setting::Kind::Tag;
}

// A row's value may end the fault of a document: that of a placeholder always, that of an element
// where the document is XML at least.
bool canMend(const std::string& column, const QString& document, bool isXml) {
    const auto setting = tool::columnSetting(column, {});
    if (!setting || !isTag(*setting)) {
        return setting && isXml;
    }
    return document.contains(QLatin1Char('%') + QString::fromStdString(column) + QLatin1Char('%'));
}

void requireHope(const tool::Layout& layout, const std::vector<std::string>& columns) {
    const tool::DocumentView view(layout.source());
    const bool isXml = !view.xmlError();
    const bool hasHope =
        std::any_of(columns.begin(), columns.end(),
                    [&](const std::string& column) { return canMend(column, view.text(), isXml); });
    if (!hasHope) {
        requireDocument(layout.source());
    }
}

// What is no XML has no place for anything.
[[noreturn]] void refuse(const tool::Layout& layout, const std::string& name,
                         const std::string& missing) {
    if (tool::DocumentView(layout.source()).xmlError()) {
        requireDocument(layout.source());
    }
    throw Failure(ExitCode::Usage, name + ": the document has no such " + missing);
}

} // namespace

std::string tool::describeColumn(const std::string& column) {
    return "column '" + column + "'";
}

void tool::setInPlace(Layout& layout, const Setting& setting, const std::string& name) {
    try {
        layout.set(setting);
    } catch (const Failure&) {
        refuse(layout, name, "link");
    }
    if (!layout.hasPlaceFor(setting)) {
        refuse(layout, name, "object");
    }
}

bool tool::checkColumns(Layout& layout, const std::vector<Setting>& fixedSettings,
                        const std::vector<std::string>& columns) {
    for (const Setting& setting : fixedSettings) {
        if (isTag(setting)) {
            layout.set(setting);
        }
    }
    if (DocumentView(layout.source()).xmlError()) {
        requireHope(layout, columns);
        return false;
    }
    for (const Setting& setting : fixedSettings) {
        if (!isTag(setting)) {
            setInPlace(layout, setting, describe(setting));
        }
    }
    requireHope(layout, columns);
    for (const std::string& column : columns) {
        const auto setting = columnSetting(column, {});
        if (setting && !isTag(*setting)) {
            setInPlace(layout, *setting, describeColumn(column));
        }
    }
    return true;
}
