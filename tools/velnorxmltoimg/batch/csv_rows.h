// Comma-separated values as RFC 4180 has them; the first line names the columns.
#ifndef VELNOR_TOOL_CSV_ROWS_H
#define VELNOR_TOOL_CSV_ROWS_H

#include "batch/row_reader.h"

#include <csv.h>

namespace tool {

// Spaces belong to values; lines without any character are passed over.
class CsvRows : public RowReader {
public:
    explicit CsvRows(char delimiter);
    ~CsvRows() override;

    void feed(const char* bytes, size_t size, std::deque<Row>& rows) override;
    void finish(std::deque<Row>& rows) override;
    bool isLost() const override { return lost; }
    const std::vector<std::string>* columns() const override;

private:
    static void takeField(void* text, size_t size, void* self);
    static void takeEnd(int terminator, void* self);
    size_t skipMark(const char* bytes, size_t size);
    void parse(const char* bytes, size_t size);
    // A file whose lines end by carriage returns alone is one line.
    std::uint64_t placeOfRow() const { return rowLine == 0 ? line : rowLine; }
    void endRow();
    void setHeader();
    void loseRest(const std::string& reason);

    csv_parser parser{};
    std::vector<std::string> header;
    bool headerKnown = false;
    std::vector<std::string> fields;
    size_t rowSize = 0;
    std::uint64_t line = 1;
    std::uint64_t rowLine = 0; // 0 between two rows
    std::uint64_t rowsSeen = 0;
    size_t markSeen = 0; // bytes of the byte order mark
    bool markPossible = true;
    bool lost = false;
    std::deque<Row>* target = nullptr;
};

} // namespace tool

#endif
