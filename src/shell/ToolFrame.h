// The frame of a tool window: title, close button, place in twips, above all other windows.
#pragma once

#include "platform/Desktop.h"
#include "shell/SkinnedFrame.h"
#include "shell/WindowPlace.h"

#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include <functional>
#include <string>

namespace platform {
class Settings;
} // namespace platform

namespace velorin {

/// Owns its title bar and its frame; whoever derives from it puts the controls under the title.
class ToolFrame : public QWidget {
    Q_OBJECT

public:
    struct Face {
        const char* name;  ///< object name, "Form3"
        const char* title; ///< text of `lblTitle`
        const char* icon;  ///< title picture, a file name of the look
        QSize size;        ///< pixels
    };

    /// On top unless `stacking` says otherwise. A window that is set on top once it has its
    /// controls finds the style of each anew, which takes as long as making them.
    ToolFrame(const Face& face, FrameState& state,
              Qt::WindowFlags stacking = Qt::WindowStaysOnTopHint);

    QLabel* lblTitle;
    QToolButton* imgTitleClose;
    SkinnedFrame frame;
    WindowPlace place;

    /// Places the window from two settings in twips, "form2 left" and "form2 top" for the key
    /// "form2". A text that is no number leaves that coordinate at its default; a place that no
    /// desktop has puts the window at the default whole. A window whose title no screen shows
    /// comes into the nearest one.
    void placeFrom(platform::Settings& settings, const std::string& key, float defaultLeft,
                   float defaultTop, platform::Desktop& desktop);
    void savePlace(platform::Settings& settings, const std::string& key) const;

    /// Whether it stands at its default, has not been shown yet, and no place was stored.
    [[nodiscard]] bool isUnplaced() const { return unplaced_; }

    /// Where the user can take hold of the window: the title as far as the button.
    [[nodiscard]] QRect grip() const;
    void comeIntoReach(const Screens& screens) { place.comeIntoReach(grip(), screens); }

    std::function<void()> onClose;    ///< the title's button, or the window system's close
    std::function<void()> onActivate; ///< the window became the active one

    /// A key that no control of the window has taken; returns whether it was one of the program's.
    std::function<bool(const QKeyEvent& event)> onKey;

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    bool unplaced_ = false;
};

/// The middle of a screen for a window of that size, in twips.
[[nodiscard]] float middleTwips(int screenPx, int windowPx);

/// Where a window begins that ends `fromEnd` before the end of a screen, in twips.
[[nodiscard]] float endTwips(int screenPx, int windowPx, float fromEnd);

} // namespace velorin
