#include "batch/output_name.h"

#include "failure.h"
#include "text.h"

#include <algorithm>
#include <charconv>

namespace {

using tool::ExitCode;
using tool::Failure;

const std::string Number = "number";
constexpr size_t LargestWidth = 100;

[[noreturn]] void refuse(const std::string& reason) {
    throw Failure(ExitCode::Usage, "--output: " + reason);
}

[[noreturn]] void refuseName(const std::string& name, const std::string& reason) {
    throw Failure(ExitCode::SomeFailed, "the output name '" + name + "' " + reason);
}

// Of "06": a zero, as other tools write it, and the width.
size_t parseWidth(const std::string& text) {
    size_t width = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, width);
    if (text.size() < 2 || text.front() != '0' || error != std::errc() || stop != end ||
        width > LargestWidth) {
        refuse("'{number:" + text + "}' is not of the form {number:06}");
    }
    return width;
}

} // namespace

tool::OutputName::OutputName(const std::string& nameTemplate) : wholeTemplate(nameTemplate) {
    if (!isText(nameTemplate) || nameTemplate.empty() || nameTemplate == "-") {
        refuse("it is to be the name of a file, such as 'out/{number}.png'");
    }
    for (size_t i = 0; i < nameTemplate.size(); ++i) {
        const char character = nameTemplate[i];
        const bool doubled = i + 1 < nameTemplate.size() && nameTemplate[i + 1] == character;
        if ((character == '{' || character == '}') && doubled) {
            addLiteral(character);
            ++i;
        } else if (character == '{') {
            i = parseColumn(nameTemplate, i + 1);
        } else if (character == '}') {
            refuse("'" + nameTemplate + "' has a } without a {; a brace itself is }}");
        } else {
            addLiteral(character);
        }
    }
    setFolder();
}

// The place of the closing brace.
size_t tool::OutputName::parseColumn(const std::string& text, size_t begin) {
    const size_t end = text.find('}', begin);
    if (end == std::string::npos || end == begin) {
        refuse("'" + text + "' has a { without a column; a brace itself is {{");
    }
    const std::string column = text.substr(begin, end - begin);
    if (column.compare(0, Number.size() + 1, Number + ':') == 0) {
        pieces.push_back({true, Number, parseWidth(column.substr(Number.size() + 1))});
    } else {
        pieces.push_back({true, column, 0});
    }
    return end;
}

void tool::OutputName::addLiteral(char character) {
    if (pieces.empty() || pieces.back().isColumn) {
        pieces.push_back({false, {}, 0});
    }
    pieces.back().text += character;
}

void tool::OutputName::setFolder() {
    const std::string begin = pieces.front().isColumn ? std::string() : pieces.front().text;
    const size_t slash = begin.rfind('/');
    folderSize = slash == std::string::npos ? 0 : slash + 1;
    fixedFolder = begin.substr(0, folderSize);
    while (fixedFolder.size() > 1 && fixedFolder.back() == '/') {
        fixedFolder.pop_back();
    }
    fixedFolder = fixedFolder.empty() ? "." : fixedFolder;
}

void tool::OutputName::requireColumns(const std::vector<std::string>& columns) {
    const auto isKnown = [&columns](const std::string& column) {
        return std::find(columns.begin(), columns.end(), column) != columns.end();
    };
    numberIsColumn = isKnown(Number);
    for (const Piece& piece : pieces) {
        if (piece.isColumn && piece.text != Number && !isKnown(piece.text)) {
            refuse("the data has no column '" + piece.text + "'");
        }
    }
}

std::string tool::OutputName::valueOf(const Piece& piece, const Row& row) const {
    std::string value;
    if (piece.text == Number && !numberIsColumn) {
        value = std::to_string(row.number);
    } else if (const std::string* given = row.find(piece.text)) {
        value = *given;
    } else {
        throw Failure(ExitCode::SomeFailed,
                      "it has no value '" + piece.text + "' for the output name");
    }
    if (value.find('/') != std::string::npos) {
        throw Failure(ExitCode::SomeFailed,
                      "its '" + piece.text + "' has a slash, which no output name can take");
    }
    if (hasControlCharacter(value)) {
        throw Failure(ExitCode::SomeFailed,
                      "its '" + piece.text +
                          "' has a control character, which no output name can take");
    }
    return std::string(piece.width > value.size() ? piece.width - value.size() : 0, '0') + value;
}

std::string tool::OutputName::expand(const Row& row) const {
    std::string name;
    for (const Piece& piece : pieces) {
        name += piece.isColumn ? valueOf(piece, row) : piece.text;
    }
    requireInside(name);
    return name;
}

// Values name files and folders inside the fixed folder, never the way out of it.
void tool::OutputName::requireInside(const std::string& name) const {
    size_t begin = folderSize;
    while (begin <= name.size()) {
        const size_t end = std::min(name.find('/', begin), name.size());
        const std::string part = name.substr(begin, end - begin);
        if (part.empty() || part == ".") {
            refuseName(name, "has an empty part");
        }
        if (part == "..") {
            refuseName(name, "leaves the output folder");
        }
        if (end == name.size() && part.rfind('.') == 0) {
            refuseName(name, "has nothing before its suffix");
        }
        begin = end + 1;
    }
}

bool tool::OutputName::makesFolders() const {
    return std::any_of(pieces.begin() + 1, pieces.end(), [](const Piece& piece) {
        return !piece.isColumn && piece.text.find('/') != std::string::npos;
    });
}

std::string tool::OutputName::formatSample() const {
    const bool endKnown = !pieces.back().isColumn &&
                          (pieces.size() == 1 || pieces.back().text.find('.') != std::string::npos);
    return endKnown ? wholeTemplate : std::string();
}

bool tool::OutputName::isUnique() const {
    const auto columns = std::count_if(pieces.begin(), pieces.end(),
                                       [](const Piece& piece) { return piece.isColumn; });
    const auto isNumber = [](const Piece& piece) { return piece.isColumn && piece.text == Number; };
    return columns == 1 && std::any_of(pieces.begin(), pieces.end(), isNumber) && !numberIsColumn;
}
