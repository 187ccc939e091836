// Fonts and text need a GUI application; without one Qt ends the process.
#ifndef VELNOR_RENDER_GUI_APPLICATION_H
#define VELNOR_RENDER_GUI_APPLICATION_H

namespace velnor {

// Every entry that touches fonts asks this first and fails softly when the answer is no.
bool guiApplicationExists();

} // namespace velnor

#endif
