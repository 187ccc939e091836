// The hidden command that a batch starts for each of its workers.
#include "batch/row_painter.h"
#include "command_line.h"
#include "commands/commands.h"
#include "qt_host.h"

#include <velnorxmltoimg.h>

#include <sys/prctl.h>
#include <unistd.h>

#include <iostream>
#include <optional>

namespace {

using tool::ExitCode;
using tool::WorkerAnswer;

// Whoever gave the orders may be gone, and nobody else would end a picture that never ends.
template <typename Work>
WorkerAnswer answerFor(unsigned seconds, const Work& work) {
    WorkerAnswer answer;
    alarm(seconds);
    try {
        work();
    } catch (const tool::Failure& failure) {
        answer = {failure.code, failure.what()};
    } catch (const std::exception& exception) {
        answer = {ExitCode::NotWritten, exception.what()};
    }
    alarm(0);
    return answer;
}

bool tell(const WorkerAnswer& answer) {
    return static_cast<bool>(std::cout << tool::toLine(answer) << std::flush);
}

// A batch that was killed cannot remove them itself. Its folder goes with the last of the workers.
void removeFolders(const std::string& folder) {
    rmdir(folder.c_str());
    rmdir(folder.substr(0, folder.rfind('/')).c_str());
}

ExitCode work() {
    prctl(PR_SET_NAME, "velnorxmltoimg"); // what lists of processes show
    // Views of the document that come and go must not take its fonts along.
    xmlToImgSetEmbeddedFontKeepFlag(1);
    std::string line;
    std::getline(std::cin, line);
    const tool::WorkerOrder order = tool::readWorkerOrder(line);
    std::optional<tool::RowPainter> painter;
    bool goOn = tell(answerFor(order.secondsARow, [&] { painter.emplace(order); })) && painter;
    while (goOn && std::getline(std::cin, line)) {
        goOn = tell(
            answerFor(order.secondsARow, [&] { painter->paint(tool::readPictureOrder(line)); }));
    }
    painter.reset();
    removeFolders(order.folder);
    return ExitCode::Done;
}

} // namespace

void tool::addBatchWorker(CommandLine& line) {
    line.addHidden(WorkerCommand, "Draw what a batch orders", [] {
        const QtHost host;
        return work();
    });
}
