#include "batch/csv_rows.h"

#include "failure.h"
#include "text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <set>

namespace {

constexpr std::array<char, 3> ByteOrderMark = {'\xEF', '\xBB', '\xBF'};
constexpr unsigned char StrictOptions = CSV_STRICT | CSV_STRICT_FINI;

constexpr size_t GrowingStep = size_t{64} * 1024;

int noSpace(unsigned char) {
    return 0;
}

std::string surplusOrMissing(size_t values, size_t columns) {
    return "it has " + std::to_string(values) + " instead of " + std::to_string(columns) +
           " values";
}

} // namespace

tool::CsvRows::CsvRows(char delimiter) {
    if (csv_init(&parser, StrictOptions) != 0) {
        throw std::bad_alloc();
    }
    csv_set_delim(&parser, static_cast<unsigned char>(delimiter));
    csv_set_space_func(&parser, noSpace);
    csv_set_blk_size(&parser, GrowingStep);
}

tool::CsvRows::~CsvRows() {
    csv_free(&parser);
}

const std::vector<std::string>* tool::CsvRows::columns() const {
    return headerKnown ? &header : nullptr;
}

// The parser does not tell where it is, so it gets the bytes line by line.
void tool::CsvRows::feed(const char* bytes, size_t size, std::deque<Row>& rows) {
    target = &rows;
    const char* const end = bytes + size;
    bytes += skipMark(bytes, size);
    while (bytes != end && !lost) {
        const auto* feedPlace =
            static_cast<const char*>(std::memchr(bytes, '\n', static_cast<size_t>(end - bytes)));
        const char* const next = feedPlace == nullptr ? end : feedPlace + 1;
        parse(bytes, static_cast<size_t>(next - bytes));
        line += feedPlace == nullptr ? 0 : 1;
        bytes = next;
    }
}

size_t tool::CsvRows::skipMark(const char* bytes, size_t size) {
    size_t skipped = 0;
    while (markPossible && skipped < size && markSeen < ByteOrderMark.size() &&
           bytes[skipped] == ByteOrderMark[markSeen]) {
        ++markSeen;
        ++skipped;
    }
    markPossible = markPossible && skipped == size && markSeen < ByteOrderMark.size();
    return skipped;
}

void tool::CsvRows::parse(const char* bytes, size_t size) {
    const bool onlyEndsLine = std::all_of(
        bytes, bytes + size, [](char character) { return character == '\r' || character == '\n'; });
    if (rowLine == 0) {
        rowLine = onlyEndsLine ? 0 : line;
        rowSize = 0;
    }
    rowSize += size;
    if (csv_parse(&parser, bytes, size, takeField, takeEnd, this) != size) {
        if (csv_error(&parser) == CSV_ENOMEM) {
            throw std::bad_alloc();
        }
        loseRest("a quote stands where none can");
    } else if (rowSize > LargestRow) {
        loseRest("it has more than " + std::to_string(LargestRow) +
                 " bytes; is a quote not closed?");
    }
}

void tool::CsvRows::finish(std::deque<Row>& rows) {
    target = &rows;
    if (!lost && csv_fini(&parser, takeField, takeEnd, this) != 0) {
        loseRest("a quote is not closed");
    }
    if (!headerKnown) {
        throw Failure(ExitCode::UnreadableDocument,
                      "the data has no line with the names of columns");
    }
}

void tool::CsvRows::takeField(void* text, size_t size, void* self) {
    auto& rows = *static_cast<CsvRows*>(self);
    rows.fields.emplace_back(static_cast<const char*>(text), size);
}

void tool::CsvRows::takeEnd(int, void* self) {
    static_cast<CsvRows*>(self)->endRow();
}

void tool::CsvRows::endRow() {
    if (!headerKnown) {
        setHeader();
    } else {
        Row row{++rowsSeen, placeOfRow(), {}, {}};
        if (fields.size() != header.size()) {
            row.fault = surplusOrMissing(fields.size(), header.size());
        } else {
            for (size_t i = 0; i < fields.size(); ++i) {
                row.values.push_back({header[i], std::move(fields[i])});
            }
        }
        target->push_back(std::move(row));
    }
    fields.clear();
    rowLine = 0;
}

void tool::CsvRows::setHeader() {
    std::set<std::string> seen;
    for (const std::string& column : fields) {
        if (!isText(column)) {
            throw Failure(ExitCode::UnreadableDocument,
                          "the names of the columns are not UTF-8 text");
        }
        if (!column.empty() && !seen.insert(column).second) {
            throw Failure(ExitCode::UnreadableDocument,
                          "the data has two columns '" + column + "'");
        }
    }
    header = std::move(fields);
    headerKnown = true;
}

void tool::CsvRows::loseRest(const std::string& reason) {
    lost = true;
    if (!headerKnown) {
        throw Failure(ExitCode::UnreadableDocument, "the first line of the data: " + reason);
    }
    target->push_back({++rowsSeen,
                       placeOfRow(),
                       {},
                       reason + "; what follows cannot be told apart, so the data ends here"});
}
