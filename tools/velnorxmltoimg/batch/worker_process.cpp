#include "batch/worker_process.h"

#include "batch/worker_messages.h"
#include "failure.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <vector>

namespace {

constexpr const char* ThisProgram = "/proc/self/exe";

[[noreturn]] void fail(int error) {
    throw tool::Failure(tool::ExitCode::NotWritten,
                        std::string("cannot start a worker: ") + std::strerror(error));
}

struct Pipe {
    tool::Descriptor readEnd;
    tool::Descriptor writeEnd;
};

// Closed in programs that are started: a worker sees the end of its orders only if no other worker
// holds them open.
Pipe makePipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        fail(errno);
    }
    return {tool::Descriptor(ends[0]), tool::Descriptor(ends[1])};
}

void neverWait(const tool::Descriptor& end) {
    fcntl(end.get(), F_SETFL, O_NONBLOCK);
}

pid_t start(const Pipe& orders, const Pipe& answers) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, orders.readEnd.get(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, answers.writeEnd.get(), STDOUT_FILENO);
    std::string program = "velnorxmltoimg";
    std::string command = tool::WorkerCommand;
    std::array<char*, 3> arguments = {program.data(), command.data(), nullptr};
    pid_t process = -1;
    const int error =
        posix_spawn(&process, ThisProgram, &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        fail(error);
    }
    return process;
}

std::string endOf(int status) {
    if (WIFSIGNALED(status)) {
        const int number = WTERMSIG(status);
        return "its worker was ended by signal " + std::to_string(number) + " (" +
               strsignal(number) + ")";
    }
    return "its worker ended with code " + std::to_string(WEXITSTATUS(status));
}

} // namespace

tool::WorkerProcess::WorkerProcess() {
    Pipe orderPipe = makePipe();
    Pipe answerPipe = makePipe();
    process = start(orderPipe, answerPipe);
    orders = std::move(orderPipe.writeEnd);
    answers = std::move(answerPipe.readEnd);
    neverWait(orders);
    neverWait(answers);
}

void tool::WorkerProcess::send(const std::string& line) {
    unwritten += line;
    writeMore();
}

// A worker that is gone is noticed by its answers.
void tool::WorkerProcess::writeMore() {
    while (!unwritten.empty()) {
        const ssize_t count = write(orders.get(), unwritten.data(), unwritten.size());
        if (count < 0 && errno != EINTR) {
            break;
        }
        unwritten.erase(0, count < 0 ? 0 : static_cast<size_t>(count));
    }
}

std::optional<std::string> tool::WorkerProcess::readLine() {
    std::array<char, 4096> portion{};
    ssize_t count = 0;
    while ((count = read(answers.get(), portion.data(), portion.size())) > 0) {
        unread.append(portion.data(), static_cast<size_t>(count));
    }
    ended = ended || count == 0;
    const size_t lineEnd = unread.find('\n');
    if (lineEnd == std::string::npos) {
        return std::nullopt;
    }
    std::string line = unread.substr(0, lineEnd);
    unread.erase(0, lineEnd + 1);
    return line;
}

std::string tool::WorkerProcess::end() {
    if (process == -1) {
        return {};
    }
    orders.close();
    int status = 0;
    if (!ended) {
        kill(process, SIGKILL);
    }
    while (waitpid(process, &status, 0) == -1 && errno == EINTR) {
    }
    process = -1;
    return endOf(status);
}
