#include "batch/summary.h"

#include "failure.h"

#include <QFile>
#include <QSaveFile>

#include <cmath>
#include <cstdio>
#include <sstream>

namespace {

using tool::Json;

// Written with what follows, so that a batch that cannot begin writes nothing on standard output.
constexpr const char* Begin = "{\"failures\":[";

// Without the braces around it and the line feed behind it.
std::string membersOf(const Json& json) {
    const std::string text = json.dump();
    return text.substr(1, text.size() - 2);
}

std::string textOf(const Json& json) {
    std::ostringstream text;
    tool::printLine(text, json);
    return text.str().substr(0, text.str().size() - 1);
}

} // namespace

tool::Summary::Summary(const std::string& fileName) : name(fileName) {
    if (name.empty()) {
        return;
    }
    bool opened = false;
    if (name == "-") {
        auto output = std::make_unique<QFile>();
        opened = output->open(stdout, QIODevice::WriteOnly);
        file = std::move(output);
    } else {
        file = std::make_unique<QSaveFile>(QString::fromStdString(name));
        opened = file->open(QIODevice::WriteOnly);
    }
    if (!opened) {
        throw Failure(ExitCode::NotWritten,
                      "cannot write '" + name + "': " + file->errorString().toStdString());
    }
}

void tool::Summary::write(const std::string& text) {
    if (file && file->write(text.data(), static_cast<qint64>(text.size())) < 0) {
        throw Failure(ExitCode::NotWritten,
                      "cannot write '" + name + "': " + file->errorString().toStdString());
    }
}

void tool::Summary::addFailure(const Json& failure) {
    write((hasFailures ? ",\n" : std::string(Begin) + '\n') + textOf(failure));
    hasFailures = true;
}

void tool::Summary::finish(const Counts& counts, double seconds) {
    constexpr double Thousand = 1000;
    write((hasFailures ? "\n]," : std::string(Begin) + "],") +
          membersOf({{"rows", counts.rows},
                     {"done", counts.done},
                     {"skipped", counts.skipped},
                     {"failed", counts.failed},
                     {"seconds", std::round(seconds * Thousand) / Thousand}}) +
          "}\n");
    auto* const saved = qobject_cast<QSaveFile*>(file.get());
    if (file && !(saved != nullptr ? saved->commit() : file->flush())) {
        throw Failure(ExitCode::NotWritten,
                      "cannot write '" + name + "': " + file->errorString().toStdString());
    }
}
