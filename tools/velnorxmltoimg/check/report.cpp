#include "check/report.h"

#include "json.h"
#include "text.h"

#include <iomanip>

namespace {

std::string subjectOf(const tool::Finding& finding) {
    if (finding.kind == "document") {
        return {};
    }
    return finding.item.empty() ? finding.kind + ": "
                                : finding.kind + " \"" + finding.item + "\": ";
}

} // namespace

void tool::printText(std::ostream& stream, const std::string& file, const Finding& finding) {
    std::string line = file + ':';
    if (finding.line != NoLine) {
        line += std::to_string(finding.line) + ':';
    }
    line += ' ' + subjectOf(finding) + finding.text + " [" + nameOf(finding.code) + ']';
    stream << printable(line) << '\n';
}

void tool::printJson(std::ostream& stream, const std::string& file, const Finding& finding) {
    Json json = {{"file", file},         {"line", nullptr},      {"code", nameOf(finding.code)},
                 {"item", finding.item}, {"kind", finding.kind}, {"text", finding.text}};
    if (finding.line != NoLine) {
        json["line"] = finding.line;
    }
    printLine(stream, json);
}

void tool::printCodes(std::ostream& stream) {
    constexpr int Column = 25;
    for (const CodeEntry& entry : findingCodes()) {
        stream << std::left << std::setw(Column) << entry.name << entry.meaning << '\n';
    }
}
