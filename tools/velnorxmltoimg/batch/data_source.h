// The bytes of the data, from a file or standard input, and the rows in them.
#ifndef VELNOR_TOOL_DATA_SOURCE_H
#define VELNOR_TOOL_DATA_SOURCE_H

#include "batch/descriptor.h"
#include "batch/row_reader.h"

#include <optional>

namespace tool {

class CommandOptions;

struct DataOptions {
    std::string file;   // "-": standard input
    std::string format; // "csv", "jsonl", or empty: by the suffix
    std::string delimiter = ",";
};

// --data, --format, --delimiter
void addDataOptions(CommandOptions& command, DataOptions& options);

class DataSource {
public:
    // Fails with Usage for an unknown kind of data, with UnreadableDocument where it cannot be opened.
    explicit DataSource(const DataOptions& options);

    // To wait for, before readMore.
    int descriptor() const { return file.get(); }

    // Reads what is there; all that is read becomes rows at once. Fails with UnreadableDocument.
    void readMore();

    bool hasRow() const { return !rows.empty(); }
    Row takeRow();

    // There are no rows but those that wait to be taken.
    bool isAtEnd() const { return atEnd; }

    // The last row is the end because nothing behind it makes sense.
    bool isLost() const { return reader->isLost(); }

    const std::vector<std::string>* columns() const { return reader->columns(); }

    // As messages name it.
    const std::string& name() const { return shownName; }

    // From 0 to 1, where the size is known.
    std::optional<double> share() const;

private:
    std::string shownName;
    Descriptor file;
    std::unique_ptr<RowReader> reader;
    std::vector<char> portion;
    std::deque<Row> rows;
    std::uint64_t size = 0; // 0: not known
    std::uint64_t bytesRead = 0;
    bool atEnd = false;
};

} // namespace tool

#endif
