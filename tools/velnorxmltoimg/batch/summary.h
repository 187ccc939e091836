// What a batch did, as one JSON object.
#ifndef VELNOR_TOOL_SUMMARY_H
#define VELNOR_TOOL_SUMMARY_H

#include "batch/progress.h"
#include "json.h"

#include <QFileDevice>

#include <memory>
#include <string>

namespace tool {

// Failed rows are written as they come; the file has its name when it is complete.
class Summary {
public:
    // "-" is standard output, an empty name no summary. Fails with NotWritten, as all of this does.
    explicit Summary(const std::string& file);

    void addFailure(const Json& failure);
    void finish(const Counts& counts, double seconds);

private:
    void write(const std::string& text);

    std::string name;
    std::unique_ptr<QFileDevice> file;
    bool hasFailures = false;
};

} // namespace tool

#endif
