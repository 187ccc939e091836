// A batch from its first row to its last.
#ifndef VELNOR_TOOL_BATCH_RUN_H
#define VELNOR_TOOL_BATCH_RUN_H

#include "batch/data_source.h"
#include "batch/shard.h"
#include "batch/worker_pool.h"

namespace tool {

struct BatchOptions {
    LayoutOptions layout;
    OutputOptions output; // its picture is the template of the names
    DataOptions data;
    PoolOptions workers;
    Shard shard;
    std::string summary;
    bool resume = false;
    bool dryRun = false;
    bool quiet = false;
};

// Fails where nothing can be drawn at all; otherwise tells of each row that failed.
ExitCode runBatch(const BatchOptions& options);

} // namespace tool

#endif
