// Fonts and text need a GUI application; without one Qt ends the process.
#ifndef VELNOR_RENDER_GUI_APPLICATION_H
#define VELNOR_RENDER_GUI_APPLICATION_H

namespace velnor {

// Every entry that touches fonts asks this first and fails softly when the answer is no.
bool guiApplicationExists();

// While this lives, the library's own application is being made or unmade: it is there already, or
// still, but nobody may use it.
class GuiApplicationNotReady {
public:
    GuiApplicationNotReady();
    ~GuiApplicationNotReady();
    GuiApplicationNotReady(const GuiApplicationNotReady&) = delete;
    GuiApplicationNotReady& operator=(const GuiApplicationNotReady&) = delete;
};

// While this lives, the calling thread keeps to the answer that it had at first: an application that
// becomes ready in the middle of a call is not for that call.
class GuiApplicationAnswer {
public:
    GuiApplicationAnswer();
    ~GuiApplicationAnswer();
    GuiApplicationAnswer(const GuiApplicationAnswer&) = delete;
    GuiApplicationAnswer& operator=(const GuiApplicationAnswer&) = delete;

private:
    bool outermost;
};

} // namespace velnor

#endif
