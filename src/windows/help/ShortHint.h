// Lines that tell the user what a key or a drop did, for a few seconds.
#pragma once

#include "windows/frame/SkinnedFrame.h"

#include <QTimer>

#include <memory>
#include <string>

class QWidget;

namespace velorin {

class HintPanel;

/// Looks like a hint and is in the upper left of the main window. It does not wait for the pointer
/// as the hints of controls do, and never takes the focus. It runs no handler and no clock of the
/// host, so nothing else notices it. User-interface thread only.
class ShortHint {
public:
    ShortHint();
    ~ShortHint();
    ShortHint(const ShortHint&) = delete;
    ShortHint& operator=(const ShortHint&) = delete;

    /// Shows one or more lines, parted by "\n", over `window`, in place of those before: for three
    /// seconds, and for longer if there is more to read. Does nothing if the window is not visible.
    void show(QWidget& window, const std::string& lines);
    void hide();

    /// Null before the first hint.
    [[nodiscard]] QWidget* window() const;
    /// The text that is shown; empty while it is hidden.
    [[nodiscard]] std::string text() const;

private:
    FrameState frames_; ///< its own: it does not count as a region of the program
    std::unique_ptr<HintPanel> panel_;
    QTimer timer_;
};

} // namespace velorin
