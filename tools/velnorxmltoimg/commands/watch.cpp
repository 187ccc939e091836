#include "command_line.h"
#include "commands/commands.h"
#include "complaint.h"
#include "layout/layout.h"
#include "output/picture_output.h"
#include "qt_host.h"
#include "text.h"
#include "watch/watched_files.h"

#include <QCoreApplication>
#include <QFileSystemWatcher>
#include <QTimer>

#include <iostream>
#include <memory>

#include <unistd.h>

namespace {

// An editor that saves touches a file several times.
constexpr int SettlingMilliseconds = 60;

struct Options {
    tool::LayoutOptions layout;
    tool::OutputOptions output;
};

class Watch {
public:
    explicit Watch(const Options& givenOptions) : options(givenOptions), files(options.layout) {
        settling.setSingleShot(true);
        settling.setInterval(SettlingMilliseconds);
        const auto settle = [this] { settling.start(); };
        QObject::connect(&watcher, &QFileSystemWatcher::fileChanged, settle);
        QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, settle);
        QObject::connect(&settling, &QTimer::timeout, [this] { renderChanges(); });
    }

    // What is wrong with the document is told, and the picture stays until it is mended.
    void render() {
        // Before the files are read, so that no change is missed.
        watchFiles();
        try {
            files.addPictures(options.layout);
            watchFiles();
            tool::writePicture(tool::Layout(options.layout), options.output);
            tell("rendered " + options.output.picture);
        } catch (const tool::Failure& failure) {
            tool::complain(failure.what());
        }
    }

private:
    void renderChanges() {
        if (files.haveChanged()) {
            render();
        }
        watchFiles();
    }

    // A file that was replaced is no longer watched, and new ones are not yet.
    void watchFiles() {
        QStringList unwatched;
        for (const QString& path : files.paths()) {
            if (!watcher.files().contains(path) && !watcher.directories().contains(path)) {
                unwatched.append(path);
            }
        }
        if (!unwatched.isEmpty()) {
            watcher.addPaths(unwatched);
        }
    }

    static void tell(const std::string& message) {
        if (isatty(STDERR_FILENO) != 0) {
            std::cerr << tool::printable(message) << std::endl;
        }
    }

    const Options& options;
    tool::WatchedFiles files;
    QFileSystemWatcher watcher;
    QTimer settling;
};

tool::ExitCode watch(const Options& options) {
    if (options.layout.document == "-" || options.output.picture == "-") {
        throw tool::Failure(tool::ExitCode::Usage, "watch needs files, not standard streams");
    }
    tool::requirePictureFormat(options.output.picture);
    tool::requireReadable(options.layout.document);
    const tool::QtHost host;
    Watch watch(options);
    watch.render();
    QCoreApplication::exec();
    return tool::ExitCode::Done;
}

} // namespace

void tool::addWatch(CommandLine& line) {
    auto options = std::make_shared<Options>();
    CommandOptions command =
        line.add("watch", "Render again whenever the document or one of its files changes",
                 [options] { return watch(*options); });
    addLayoutOptions(command, options->layout);
    addOutputOptions(command, options->output, "The picture; its suffix is its format");
    addValueOptions(command, options->layout);
    command.footer(
        "Ends when it is interrupted. A document that cannot be read is told of; the picture\n"
        "stays until it is mended.\n"
        "\n"
        "Example:\n"
        "  velnorxmltoimg watch receipt.xml -o receipt.png --params guest.xml");
}
