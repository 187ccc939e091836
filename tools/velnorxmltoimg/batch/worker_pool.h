// The workers of a batch: as many as asked for, each drawing one row at a time.
#ifndef VELNOR_TOOL_WORKER_POOL_H
#define VELNOR_TOOL_WORKER_POOL_H

#include "batch/worker_messages.h"
#include "batch/worker_process.h"

#include <chrono>
#include <memory>
#include <vector>

struct pollfd;

namespace tool {

// What is told of a row when it is done.
struct Task {
    std::uint64_t row;
    std::uint64_t line;
    std::string output;
};

struct TaskResult {
    Task task;
    std::string failure; // empty: there is a picture
};

struct PoolOptions {
    unsigned jobs = 1;
    unsigned secondsARow = 60;
};

// Whatever happens to a worker happens to its row alone. What no worker can overcome, such as a layout
// that cannot be read, fails as it does there.
class WorkerPool {
public:
    // `workingFolder` is removed by the caller when the pool is gone.
    WorkerPool(const PoolOptions& options, const std::string& workingFolder);
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Starts the first worker. The folder in the order is set here.
    void start(WorkerOrder order);

    // The first worker has found nothing wrong.
    bool isReady() const { return ready; }
    bool hasIdle() const;
    bool hasTasks() const;

    // One more worker, unless there are enough or one is about to be idle.
    void grow();

    // Only where one is idle.
    void give(const Task& task, const std::vector<Value>& values);

    void addDescriptors(std::vector<pollfd>& descriptors) const;
    std::optional<std::chrono::steady_clock::time_point> nextDeadline() const;

    // Whatever can be done without waiting.
    std::vector<TaskResult> serve();

    // Lets the idle workers end by themselves.
    void finish();

private:
    struct Worker;
    void add();
    void startClock(Worker& worker) const;
    bool serveOne(Worker& worker, std::vector<TaskResult>& results);
    void accept(Worker& worker, const WorkerAnswer& answer, std::vector<TaskResult>& results);
    void lose(Worker& worker, const std::string& reason, std::vector<TaskResult>& results);

    PoolOptions options;
    std::string folder;
    WorkerOrder order;
    std::vector<std::unique_ptr<Worker>> workers;
    std::uint64_t started = 0;
    bool ready = false;
};

} // namespace tool

#endif
