// The commands of the tool. Each adds itself to the command line.
#ifndef VELNOR_TOOL_COMMANDS_H
#define VELNOR_TOOL_COMMANDS_H

namespace tool {

class CommandLine;

void addRender(CommandLine& line);
void addBatch(CommandLine& line);
void addBatchWorker(CommandLine& line); // hidden
void addCheck(CommandLine& line);
void addWatch(CommandLine& line);
void addBoxes(CommandLine& line);
void addFonts(CommandLine& line);
void addParams(CommandLine& line);
void addSettings(CommandLine& line);

} // namespace tool

#endif
