// Bytes of a data file become rows, as far as the bytes go.
#ifndef VELNOR_TOOL_ROW_READER_H
#define VELNOR_TOOL_ROW_READER_H

#include "batch/row.h"

#include <deque>
#include <memory>
#include <string>

namespace tool {

// More belongs to no row. It is the end of what is kept when a quote or a line is never closed.
constexpr size_t LargestRow = size_t{16} * 1024 * 1024;

class RowReader {
public:
    RowReader() = default;
    virtual ~RowReader() = default;
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    // Rows that are complete are added to `rows`. Fails where the bytes are no data at all.
    virtual void feed(const char* bytes, size_t size, std::deque<Row>& rows) = 0;

    // There are no more bytes.
    virtual void finish(std::deque<Row>& rows) = 0;

    // Nothing that follows can be told from rubbish. The last row has the reason.
    virtual bool isLost() const { return false; }

    // Known before the first row, or as soon as there is a good one.
    virtual const std::vector<std::string>* columns() const = 0;
};

} // namespace tool

#endif
