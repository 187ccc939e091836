#include "batch/row_painter.h"

#include "batch/column.h"
#include "batch/column_check.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

using tool::ExitCode;
using tool::Failure;
using tool::Setting;

// The dictionary keeps the first value of a tag, so fixed ones wait until a row has set its own.
tool::LayoutOptions withoutSettings(tool::LayoutOptions options) {
    options.settings.clear();
    return options;
}

// Of the file's name alone.
std::string suffixOf(const std::string& name) {
    const std::string file = name.substr(name.rfind('/') + 1);
    const size_t point = file.rfind('.');
    return point == std::string::npos ? std::string() : file.substr(point);
}

// Messages name the picture that the user wants, not the unfinished one.
std::string naming(const std::string& wanted, const std::string& unfinished, std::string message) {
    const size_t place = message.find(unfinished);
    return place == std::string::npos ? message : message.replace(place, unfinished.size(), wanted);
}

} // namespace

tool::RowPainter::RowPainter(const WorkerOrder& order)
    : fixedSettings(order.layout.settings), mono(order.mono), folder(order.folder),
      layout(withoutSettings(order.layout)) {
    if (!order.formatSample.empty()) {
        requirePictureFormat(order.formatSample);
    }
    if (checkColumns(layout, fixedSettings, order.columns)) {
        checkedColumns.insert(order.columns.begin(), order.columns.end());
    }
}

void tool::RowPainter::setValues(const std::vector<Value>& values) {
    layout.reset();
    for (const Value& value : values) {
        const auto setting = columnSetting(value.column, value.text);
        if (setting && setting->kind == Setting::Kind::Tag) {
            layout.set(*setting);
        }
    }
    for (const Setting& setting : fixedSettings) {
        layout.set(setting);
    }
    for (const Value& value : values) {
        const auto setting = columnSetting(value.column, value.text);
        if (setting && setting->kind != Setting::Kind::Tag) {
            setObject(value.column, *setting);
        }
    }
}

void tool::RowPainter::setObject(const std::string& column, const Setting& setting) {
    if (checkedColumns.count(column) == 0) {
        setInPlace(layout, setting, describeColumn(column));
    } else {
        layout.set(setting);
    }
}

void tool::RowPainter::paint(const PictureOrder& order) {
    requirePictureFormat(order.output);
    setValues(order.values);
    const std::string unfinished = folder + "/picture" + suffixOf(order.output);
    try {
        writePicture(layout, {unfinished, mono});
    } catch (const Failure& failure) {
        throw Failure(failure.code, naming(order.output, unfinished, failure.what()));
    }
    if (std::rename(unfinished.c_str(), order.output.c_str()) != 0) {
        const std::string reason = std::strerror(errno);
        std::remove(unfinished.c_str());
        throw Failure(ExitCode::NotWritten, "cannot write '" + order.output + "': " + reason);
    }
}
