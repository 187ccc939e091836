#include "batch/worker_pool.h"

#include <poll.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace {

using Clock = std::chrono::steady_clock;

// An orphan ends later than its batch would have ended it.
constexpr unsigned OrphanSeconds = 5;
constexpr int EndingMilliseconds = 5000;

void removeAll(const std::string& folder) {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

} // namespace

struct tool::WorkerPool::Worker {
    enum class State { Opening, Idle, Busy };

    WorkerProcess process;
    std::string folder;
    State state = State::Opening;
    Task task{};
    Clock::time_point deadline{};
};

tool::WorkerPool::WorkerPool(const PoolOptions& givenOptions, const std::string& workingFolder)
    : options(givenOptions), folder(workingFolder) {}

tool::WorkerPool::~WorkerPool() = default;

void tool::WorkerPool::start(WorkerOrder workerOrder) {
    order = std::move(workerOrder);
    order.secondsARow = options.secondsARow + OrphanSeconds;
    add();
}

void tool::WorkerPool::add() {
    order.folder = folder + '/' + std::to_string(++started);
    if (mkdir(order.folder.c_str(), S_IRWXU) != 0) {
        throw Failure(ExitCode::NotWritten,
                      "cannot write into '" + folder + "': " + std::strerror(errno));
    }
    workers.push_back(std::make_unique<Worker>());
    Worker& worker = *workers.back();
    worker.folder = order.folder;
    startClock(worker);
    worker.process.send(toLine(order));
}

void tool::WorkerPool::startClock(Worker& worker) const {
    worker.deadline = Clock::now() + std::chrono::seconds(options.secondsARow);
}

bool tool::WorkerPool::hasIdle() const {
    return std::any_of(workers.begin(), workers.end(),
                       [](const auto& worker) { return worker->state == Worker::State::Idle; });
}

bool tool::WorkerPool::hasTasks() const {
    return std::any_of(workers.begin(), workers.end(),
                       [](const auto& worker) { return worker->state == Worker::State::Busy; });
}

void tool::WorkerPool::grow() {
    const bool enough = std::any_of(workers.begin(), workers.end(), [](const auto& worker) {
        return worker->state != Worker::State::Busy;
    });
    if (!enough && workers.size() < options.jobs) {
        add();
    }
}

void tool::WorkerPool::give(const Task& task, const std::vector<Value>& values) {
    const auto idle = std::find_if(workers.begin(), workers.end(), [](const auto& worker) {
        return worker->state == Worker::State::Idle;
    });
    Worker& worker = **idle;
    worker.state = Worker::State::Busy;
    worker.task = task;
    startClock(worker);
    worker.process.send(toLine(PictureOrder{task.output, values}));
}

void tool::WorkerPool::addDescriptors(std::vector<pollfd>& descriptors) const {
    for (const auto& worker : workers) {
        descriptors.push_back({worker->process.answersDescriptor(), POLLIN, 0});
        if (worker->process.hasMoreToWrite()) {
            descriptors.push_back({worker->process.ordersDescriptor(), POLLOUT, 0});
        }
    }
}

std::optional<Clock::time_point> tool::WorkerPool::nextDeadline() const {
    std::optional<Clock::time_point> next;
    for (const auto& worker : workers) {
        if (worker->state != Worker::State::Idle) {
            next = std::min(next.value_or(worker->deadline), worker->deadline);
        }
    }
    return next;
}

std::vector<tool::TaskResult> tool::WorkerPool::serve() {
    std::vector<TaskResult> results;
    workers.erase(std::remove_if(workers.begin(), workers.end(),
                                 [&](auto& worker) { return !serveOne(*worker, results); }),
                  workers.end());
    return results;
}

// False where the worker is no more.
bool tool::WorkerPool::serveOne(Worker& worker, std::vector<TaskResult>& results) {
    worker.process.writeMore();
    while (const auto line = worker.process.readLine()) {
        accept(worker, readWorkerAnswer(*line), results);
    }
    if (worker.process.hasEnded()) {
        lose(worker, worker.process.end(), results);
        return false;
    }
    if (worker.state != Worker::State::Idle && Clock::now() >= worker.deadline) {
        worker.process.end();
        lose(worker, "no picture within " + std::to_string(options.secondsARow) + " s", results);
        return false;
    }
    return true;
}

void tool::WorkerPool::accept(Worker& worker, const WorkerAnswer& answer,
                              std::vector<TaskResult>& results) {
    if (worker.state == Worker::State::Busy) {
        results.push_back({worker.task, answer.failure});
    } else if (!answer.failure.empty()) {
        throw Failure(answer.code, answer.failure);
    }
    ready = true;
    worker.state = Worker::State::Idle;
}

void tool::WorkerPool::lose(Worker& worker, const std::string& reason,
                            std::vector<TaskResult>& results) {
    removeAll(worker.folder);
    if (worker.state == Worker::State::Opening) {
        throw Failure(ExitCode::NotWritten, "a worker cannot open the layout: " + reason);
    }
    if (worker.state == Worker::State::Busy) {
        results.push_back({worker.task, reason});
    }
}

void tool::WorkerPool::finish() {
    for (const auto& worker : workers) {
        worker->process.closeOrders();
    }
    const auto deadline = Clock::now() + std::chrono::milliseconds(EndingMilliseconds);
    for (const auto& worker : workers) {
        pollfd end{worker->process.answersDescriptor(), POLLIN, 0};
        while (!worker->process.hasEnded() && Clock::now() < deadline) {
            poll(&end, 1, EndingMilliseconds);
            worker->process.readLine();
        }
    }
    workers.clear();
}
