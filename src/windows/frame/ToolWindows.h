// Shows and unloads the tool windows, and keeps their stacking order and their places within reach.
#pragma once

#include "windows/frame/ClosedWindows.h"
#include "windows/frame/FocusKeeper.h"
#include "windows/frame/HoverKeeper.h"
#include "windows/frame/SkinnedFrame.h"

#include <QObject>

#include <array>
#include <functional>
#include <optional>
#include <vector>

class QScreen;

namespace platform {
struct Platform;
} // namespace platform

namespace velorin {

class HoldingLoop;
class ToolFrame;
class ToolWindow;
struct Run;

/// In their first stacking order, the lowest first.
enum class Tool {
    editing,   ///< `Form2`
    setup,     ///< `Form3`
    recording, ///< `Record`
    tutorial,  ///< `Wiz`
    history,   ///< the History window; in the order once it was shown
    exporting, ///< the Export window; the same
};
constexpr std::array allTools{Tool::editing,  Tool::setup,   Tool::recording,
                              Tool::tutorial, Tool::history, Tool::exporting};

/// One for the program; it also has the state that all windows share. A window may be closed and
/// loaded again at any time. User-interface thread only.
class ToolWindows : public QObject {
    Q_OBJECT

public:
    /// Needs an event dispatcher. All outlive this.
    ToolWindows(platform::Platform& platform, Run& run, HoldingLoop& loop);

    /// Call it once for each tool. The window must outlive every later call except the destructor.
    void add(Tool tool, ToolWindow& window);

    /// The window, or null while it is not loaded.
    [[nodiscard]] QWidget* window(Tool tool) const;
    /// The window, loaded if it was not. After `stopLoading` the same as `window`.
    QWidget* load(Tool tool);
    /// Loads the window if it is not loaded, and shows it above the others.
    void show(Tool tool);
    /// Does nothing if it is not loaded.
    void unload(Tool tool);
    /// The program is about to end: shows no window from now on.
    void stopShowing() { shows_ = false; }
    /// The program has ended: loads no window from now on.
    void stopLoading() { loads_ = false; }

    void HideToolbars(); ///< all that are open
    void ShowToolbars(); ///< all that are open; the highest stays the highest
    /// Sets or clears the top-most state of `Record` and `Wiz`, if they are loaded.
    void setTopMost(bool topMost);

    /// Gives a tool window the main window's keys. Call it when its controls are made, before
    /// `show`.
    void noteMade(ToolFrame& window);
    /// Gives a window the key that arranges the tool windows. `noteMade` does it for those.
    void addArrangeKey(QWidget& window);
    /// Moves the visible tool windows apart, so that none covers another. The lowest stays where it
    /// is; each other one goes to the nearest free place, or stays if no screen has room for it.
    void arrange();
    /// A tool window became active, and so is above the others.
    void noteActive(Tool tool);
    [[nodiscard]] std::optional<Tool> active() const { return active_; } ///< the last one
    /// The lowest first.
    [[nodiscard]] const std::vector<Tool>& order() const { return order_; }

    /// The main window was minimised: hides the visible tool windows.
    void hideWithMain();
    /// The main window came back: shows the tool windows again, except those closed meanwhile.
    void showWithMain();

    /// Moves every window that no screen shows any more into the nearest screen.
    void comeIntoReach();

    FrameState frames; ///< shared by the frames of all windows
    FocusKeeper focus;
    HoverKeeper hover;
    ClosedWindows closed;

    std::function<void(ToolFrame&)> addKeys; ///< gives a tool window the main window's keys
    std::function<void()> onScreensChanged;  ///< brings the main window into reach

private:
    void noteHighest(Tool tool);
    void moveBeside(ToolFrame& window);
    void openTitleMenu();
    [[nodiscard]] std::vector<QRect> takenWithout(const QWidget& window) const;
    void watch(QScreen* screen);
    void lookSoon();
    [[nodiscard]] bool isOpen(Tool tool) const;

    platform::Platform& platform_;
    Run& run_;
    std::array<ToolWindow*, allTools.size()> tools_{};
    std::vector<Tool> order_;
    std::vector<Tool> gone_; ///< hidden with the main window, the lowest first
    std::optional<Tool> active_;
    bool looksSoon_ = false;
    bool shows_ = true;
    bool loads_ = true;
};

} // namespace velorin
