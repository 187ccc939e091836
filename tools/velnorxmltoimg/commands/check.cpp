#include "check/check_document.h"
#include "check/report.h"
#include "command_line.h"
#include "commands/commands.h"
#include "qt_host.h"

#include <algorithm>
#include <iostream>
#include <memory>

namespace {

using tool::ExitCode;
using tool::Failure;

struct Options {
    tool::LayoutOptions layout; // of each document
    std::vector<std::string> documents;
    std::vector<tool::Code> ignored;
    bool json = false;
    bool findingsAreErrors = false;
    bool listCodes = false;
};

bool isIgnored(const Options& options, const tool::Finding& finding) {
    return std::find(options.ignored.begin(), options.ignored.end(), finding.code) !=
           options.ignored.end();
}

// What the run has come to so far.
struct Outcome {
    bool hasFault = false;
    bool hasFinding = false;
};

void checkOne(const Options& options, const std::string& file, Outcome& outcome) {
    tool::LayoutOptions layout = options.layout;
    layout.document = file;
    const tool::Verdict verdict = tool::checkDocument(layout);
    outcome.hasFault |= verdict.isFaulty;
    for (const tool::Finding& finding : verdict.findings) {
        if (!isIgnored(options, finding)) {
            options.json ? tool::printJson(std::cout, file, finding)
                         : tool::printText(std::cout, file, finding);
            outcome.hasFinding = true;
        }
    }
}

ExitCode check(const Options& options) {
    if (options.listCodes) {
        tool::printCodes(std::cout);
        return ExitCode::Done;
    }
    if (options.documents.empty()) {
        throw Failure(ExitCode::Usage, "check: LAYOUT is required");
    }
    const tool::QtHost host;
    Outcome outcome;
    for (const std::string& file : options.documents) {
        checkOne(options, file, outcome);
    }
    if (outcome.hasFault) {
        return ExitCode::UnreadableDocument;
    }
    return outcome.hasFinding && options.findingsAreErrors ? ExitCode::Findings : ExitCode::Done;
}

void ignore(Options& options, const std::string& name) {
    const auto code = tool::codeOfName(name);
    if (!code) {
        throw Failure(ExitCode::Usage, "--ignore: there is no code '" + name + "'");
    }
    options.ignored.push_back(*code);
}

} // namespace

void tool::addCheck(CommandLine& line) {
    auto options = std::make_shared<Options>();
    CommandOptions command = line.add("check", "Find mistakes in layout documents",
                                      [options] { return check(*options); });
    command.operands("LAYOUT", options->documents, "The layout documents; - is standard input");
    command.flag("--json", options->json, "As one JSON object a line");
    command.flag("--werror", options->findingsAreErrors, "End with 4 where anything is found");
    command.values(
        "--ignore", [options](const std::string& name) { ignore(*options, name); }, "CODE",
        "Leave out findings of this code");
    command.flag("--codes", options->listCodes, "List the codes of findings and end");
    addValueOptions(command, options->layout);
    command.footer(
        "One finding a line, with the code of its kind at its end; nothing where there is none.\n"
        "Exit codes: 0 done, 3 a document cannot be read or drawn, 4 findings under --werror.\n"
        "\n"
        "Examples:\n"
        "  velnorxmltoimg check receipt.xml --tag till=07\n"
        "  velnorxmltoimg check --werror layouts/*.xml --ignore quiet-zone-edge");
}
