#include "command_line.h"
#include "commands/commands.h"
#include "engine/document_view.h"
#include "engine/drawn_layout.h"
#include "engine/item_names.h"
#include "json.h"
#include "layout/layout.h"
#include "qt_host.h"
#include "text.h"

#include <cmath>
#include <iomanip>
#include <iostream>
#include <memory>

namespace {

using tool::DrawnLayout;
using tool::Json;

struct Options {
    tool::LayoutOptions layout;
    bool json = false;
};

// A hundredth of a dot or a point is more than anybody can see.
double rounded(double number) {
    return std::round(number * 100) / 100;
}

Json describeBox(const QRectF& box) {
    return {{"x", rounded(box.x())},
            {"y", rounded(box.y())},
            {"width", rounded(box.width())},
            {"height", rounded(box.height())}};
}

Json describeItem(const DrawnLayout& layout, const VelnorDrawableElement& item) {
    Json json = {{"id", item.id.toStdString()},
                 {"class", tool::className(item)},
                 {"row", item.row},
                 {"column", item.column},
                 {"drawn", layout.isDrawn(item)}};
    if (layout.isDrawn(item)) {
        json["box"] = describeBox(item.drawnBox);
    }
    if (item.type == velnor::TextKind) {
        const auto& text = static_cast<const VelnorDrawableText&>(item);
        json["fontsize"] = text.fontsize;
        json["drawnFontsize"] = rounded(text.drawnFontSize);
    }
    return json;
}

Json describeCanvas(const DrawnLayout& layout) {
    const VelnorDrawableCanvas& canvas = layout.canvas();
    return {
        {"width", canvas.width},
        {"height", layout.picture().height() - canvas.y - canvas.yb},
        {"grows", layout.grows()},
        {"dpi", canvas.dpi},
        {"margins",
         {{"left", canvas.x}, {"top", canvas.y}, {"right", canvas.xr}, {"bottom", canvas.yb}}},
        {"picture", {{"width", layout.picture().width()}, {"height", layout.picture().height()}}}};
}

void printJson(const DrawnLayout& layout) {
    Json items = Json::array();
    for (const auto& item : layout.items()) {
        items.push_back(describeItem(layout, *item));
    }
    tool::printLine(std::cout, {{"canvas", describeCanvas(layout)}, {"items", items}});
}

std::string sizeOf(const VelnorDrawableElement& item) {
    if (item.type != velnor::TextKind) {
        return "";
    }
    std::ostringstream size;
    size << rounded(static_cast<const VelnorDrawableText&>(item).drawnFontSize) << " pt";
    return size.str();
}

void printTable(const DrawnLayout& layout) {
    std::cout << std::left << std::setw(24) << "item" << std::setw(11) << "class" << std::right
              << std::setw(8) << "x" << std::setw(8) << "y" << std::setw(8) << "width"
              << std::setw(8) << "height" << std::setw(10) << "text" << '\n';
    for (const auto& item : layout.items()) {
        std::cout << std::left << std::setw(24) << tool::printable(tool::nameOf(*item))
                  << std::setw(11) << tool::className(*item) << std::right;
        if (layout.isDrawn(*item)) {
            const QRect box = item->drawnBox.toAlignedRect();
            std::cout << std::setw(8) << box.x() << std::setw(8) << box.y() << std::setw(8)
                      << box.width() << std::setw(8) << box.height() << std::setw(10)
                      << sizeOf(*item) << '\n';
        } else {
            std::cout << "  not drawn\n";
        }
    }
}

tool::ExitCode showBoxes(const Options& options) {
    const tool::QtHost host;
    const tool::Layout layout(options.layout);
    tool::requireDocument(layout.source());
    const DrawnLayout drawn{tool::DocumentView(layout.source())};
    options.json ? printJson(drawn) : printTable(drawn);
    return tool::ExitCode::Done;
}

} // namespace

void tool::addBoxes(CommandLine& line) {
    auto options = std::make_shared<Options>();
    CommandOptions command = line.add("boxes", "Show where each item landed and at which text size",
                                      [options] { return showBoxes(*options); });
    addLayoutOptions(command, options->layout);
    command.flag("--json", options->json, "As one JSON object");
    addValueOptions(command, options->layout);
    command.footer(
        "Boxes are in dots of the canvas: its margins are not counted. Text sizes are points\n"
        "on paper, after shrinking.\n"
        "\n"
        "Example:\n"
        "  velnorxmltoimg boxes receipt.xml --json");
}
