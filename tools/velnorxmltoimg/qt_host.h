// The Qt application that drawing and fonts need.
#ifndef VELNOR_TOOL_QT_HOST_H
#define VELNOR_TOOL_QT_HOST_H

#include <memory>

class QGuiApplication;

namespace tool {

// One for the length of a command that draws. No display is needed.
class QtHost {
public:
    QtHost();
    ~QtHost();
    QtHost(const QtHost&) = delete;
    QtHost& operator=(const QtHost&) = delete;

private:
    std::unique_ptr<QGuiApplication> application;
};

} // namespace tool

#endif
