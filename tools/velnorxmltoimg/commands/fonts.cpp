#include "command_line.h"
#include "commands/commands.h"
#include "json.h"
#include "layout/registered_fonts.h"
#include "qt_host.h"
#include "text.h"
#include "text_coverage.h"

#include <QFontDatabase>

#include <iostream>
#include <memory>
#include <optional>

namespace {

using tool::Json;

struct Options {
    tool::LayoutOptions layout;
    std::string text;
    bool json = false;
};

struct Family {
    QString name;
    QStringList styles;
    QVector<uint> missing;
};

std::vector<Family> familiesFor(const QString& text) {
    const QFontDatabase database;
    std::vector<Family> families;
    for (const QString& name : database.families()) {
        families.push_back(
            {name, database.styles(name), tool::missingCharacters(QFont(name), text)});
    }
    return families;
}

Json describe(const Family& family, bool withCoverage) {
    Json json = {{"family", family.name.toStdString()}, {"styles", Json::array()}};
    for (const QString& style : family.styles) {
        json["styles"].push_back(style.toStdString());
    }
    if (withCoverage) {
        json["missing"] = Json::array();
        for (const uint character : family.missing) {
            json["missing"].push_back(QString::fromUcs4(&character, 1).toStdString());
        }
    }
    return json;
}

std::string coverageOf(const Family& family) {
    return family.missing.isEmpty() ? "all" : "lacks " + tool::listCharacters(family.missing);
}

void print(const Family& family, const Options& options) {
    if (options.json) {
        tool::printLine(std::cout, describe(family, !options.text.empty()));
        return;
    }
    std::cout << tool::printable(family.name.toStdString()) << '\t'
              << (options.text.empty() ? family.styles.join(QLatin1String(", ")).toStdString()
                                       : coverageOf(family))
              << '\n';
}

tool::ExitCode showFonts(const Options& options) {
    if (!tool::isText(options.text)) {
        throw tool::Failure(tool::ExitCode::Usage, "--for: the text is not UTF-8");
    }
    const tool::QtHost host;
    const tool::RegisteredFonts registered(options.layout);
    for (const Family& family : familiesFor(QString::fromStdString(options.text))) {
        print(family, options);
    }
    return tool::ExitCode::Done;
}

} // namespace

void tool::addFonts(CommandLine& line) {
    auto options = std::make_shared<Options>();
    CommandOptions command = line.add("fonts", "List the fonts that a layout can use",
                                      [options] { return showFonts(*options); });
    command.operand("LAYOUT", options->layout.document, "Count in the fonts beside this document",
                    Presence::Optional);
    command.value("--fonts", options->layout.fonts, "DIR",
                  "Count in the font files of this folder");
    command.value("--for", options->text, "TEXT",
                  "Tell which families have all characters of a text");
    command.flag("--json", options->json, "As one JSON object a line");
    command.footer(
        "One family a line with its styles, or with --for the characters that it lacks.\n"
        "\n"
        "Examples:\n"
        "  velnorxmltoimg fonts receipt.xml\n"
        "  velnorxmltoimg fonts --fonts ./fonts --for 'Café 4,80 €'");
}
