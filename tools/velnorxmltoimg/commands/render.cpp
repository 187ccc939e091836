#include "command_line.h"
#include "commands/commands.h"
#include "layout/layout.h"
#include "output/picture_output.h"
#include "qt_host.h"

#include <memory>

namespace {

struct Options {
    tool::LayoutOptions layout;
    tool::OutputOptions output;
};

tool::ExitCode render(const Options& options) {
    tool::requirePictureFormat(options.output.picture);
    const tool::QtHost host;
    tool::writePicture(tool::Layout(options.layout), options.output);
    return tool::ExitCode::Done;
}

} // namespace

void tool::addRender(CommandLine& line) {
    auto options = std::make_shared<Options>();
    CommandOptions command = line.add("render", "Render a layout document into a picture",
                                      [options] { return render(*options); });
    addLayoutOptions(command, options->layout);
    addOutputOptions(command, options->output,
                     "The picture; its suffix is its format; - is PNG on standard output");
    addValueOptions(command, options->layout);
    command.footer(
        "Examples:\n"
        "  velnorxmltoimg render receipt.xml -o receipt.png --tag till=07\n"
        "  velnorxmltoimg render slip.xml -o slip.bmp --mono diffuse --set total.text=12.50\n"
        "  velnorxmltoimg render - -o - <label.xml >label.png");
}
