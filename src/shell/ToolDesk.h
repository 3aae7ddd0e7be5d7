// What every tool window asks of the program around it.
#pragma once

#include <functional>
#include <memory>

class QWidget;

namespace velorin {

struct FrameState;
class ToolFrame;

class ToolDesk {
public:
    virtual ~ToolDesk() = default;

    /// A tool window, told by its name, became the active one.
    virtual void noteActiveToolbar(const char* name) = 0;

    /// Gives a tool window, when it is made, the keys of the main window, except that a key of
    /// writing goes to the window's own controls first.
    virtual void addKeys(ToolFrame& window) = 0;

    /// What the frames of all windows share.
    [[nodiscard]] virtual FrameState& frames() = 0;

    /// Takes a window that is off the screen, and destroys it as soon as no handler of its own can
    /// be running. Never destroys it before it returns.
    virtual void destroyLater(std::unique_ptr<QWidget> window) = 0;

    /// Runs a handler of the window that may wait for good, so that other windows can be destroyed
    /// meanwhile.
    virtual void runHandler(const QWidget& window, const std::function<void()>& handler) = 0;
};

} // namespace velorin
