// What a batch and its workers say to one another: a JSON object a line.
#ifndef VELNOR_TOOL_WORKER_MESSAGES_H
#define VELNOR_TOOL_WORKER_MESSAGES_H

#include "batch/row.h"
#include "failure.h"
#include "layout/layout_options.h"
#include "output/picture_output.h"

namespace tool {

// The name of the hidden command.
constexpr const char* WorkerCommand = "batch-worker";

// Once, before the first row.
struct WorkerOrder {
    LayoutOptions layout;
    Mono mono = Mono::No;
    std::vector<std::string> columns;
    std::string formatSample; // a name with the suffix of all pictures; empty where rows differ
    std::string folder;       // for what is not finished
    unsigned secondsARow = 0; // after which a worker that nobody watches any more ends itself
};

struct PictureOrder {
    std::string output;
    std::vector<Value> values;
};

// To each order. Nothing failed where the message is empty.
struct WorkerAnswer {
    ExitCode code = ExitCode::Done;
    std::string failure;
};

// With the line feed.
std::string toLine(const WorkerOrder& order);
std::string toLine(const PictureOrder& order);
std::string toLine(const WorkerAnswer& answer);

// Without it. They fail for anything else than such a line.
WorkerOrder readWorkerOrder(const std::string& line);
PictureOrder readPictureOrder(const std::string& line);
WorkerAnswer readWorkerAnswer(const std::string& line);

} // namespace tool

#endif
