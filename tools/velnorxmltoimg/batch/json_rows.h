// One JSON object a line, its keys naming the columns.
#ifndef VELNOR_TOOL_JSON_ROWS_H
#define VELNOR_TOOL_JSON_ROWS_H

#include "batch/row_reader.h"

namespace tool {

// Numbers are taken as they are written, true and false as these words, null as an empty text. Lines
// of white space are passed over.
class JsonRows : public RowReader {
public:
    void feed(const char* bytes, size_t size, std::deque<Row>& rows) override;
    void finish(std::deque<Row>& rows) override;
    const std::vector<std::string>* columns() const override;

private:
    void keep(const char* bytes, size_t size);
    void endLine(std::deque<Row>& rows);

    std::string text; // of the line that is not complete
    bool tooLong = false;
    std::uint64_t line = 1;
    std::uint64_t rowsSeen = 0;
    std::vector<std::string> firstKeys;
    bool keysKnown = false;
};

} // namespace tool

#endif
