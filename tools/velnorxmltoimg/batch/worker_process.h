// One worker: this program again, in a process of its own, reading orders and writing answers.
#ifndef VELNOR_TOOL_WORKER_PROCESS_H
#define VELNOR_TOOL_WORKER_PROCESS_H

#include "batch/descriptor.h"

#include <sys/types.h>

#include <optional>
#include <string>

namespace tool {

// Nothing here waits, but for end().
class WorkerProcess {
public:
    // Fails with NotWritten.
    WorkerProcess();
    ~WorkerProcess() { end(); }
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    // Is written as far as the worker reads; the rest by writeMore().
    void send(const std::string& line);
    void writeMore();
    bool hasMoreToWrite() const { return !unwritten.empty(); }

    // What the worker has said since; nothing while its line is not complete.
    std::optional<std::string> readLine();

    // It has closed its end: no answer will come.
    bool hasEnded() const { return ended; }

    // Tells it that there are no more orders.
    void closeOrders() { orders.close(); }

    // Kills it if it still runs. How it ended, for messages.
    std::string end();

    int ordersDescriptor() const { return orders.get(); }
    int answersDescriptor() const { return answers.get(); }

private:
    Descriptor orders;
    Descriptor answers;
    pid_t process = -1;
    std::string unwritten;
    std::string unread;
    bool ended = false;
};

} // namespace tool

#endif
