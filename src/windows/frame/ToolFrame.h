// The frame of a tool window: title, close button, place in twips, above all other windows.
#pragma once

#include "platform/Desktop.h"
#include "windows/frame/SkinnedFrame.h"
#include "windows/frame/WindowPlace.h"

#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include <functional>
#include <string>

namespace platform {
class Settings;
} // namespace platform

namespace velorin {

/// Owns its title bar and its frame. A derived window puts its controls below the title.
class ToolFrame : public QWidget {
    Q_OBJECT

public:
    struct Face {
        const char* name;  ///< object name, "Form3"
        const char* title; ///< text of `lblTitle`
        const char* icon;  ///< title picture, a file name of the look
        QSize size;        ///< pixels
    };

    /// On top unless `stacking` says otherwise. Setting it on top after the controls are made would
    /// restyle each of them, which takes as long as making them.
    ToolFrame(const Face& face, FrameState& state,
              Qt::WindowFlags stacking = Qt::WindowStaysOnTopHint);

    QLabel* lblTitle;
    QToolButton* imgTitleClose;
    SkinnedFrame frame;
    WindowPlace place;

    /// Places the window from two settings in twips: "form2 left" and "form2 top" for the key
    /// "form2". A text that is no number leaves that coordinate at its default. If no desktop is
    /// large enough for the place, both coordinates get their defaults. A window whose title no
    /// screen shows moves into the nearest screen.
    void placeFrom(platform::Settings& settings, const std::string& key, float defaultLeft,
                   float defaultTop, platform::Desktop& desktop);
    void savePlace(platform::Settings& settings, const std::string& key) const;

    /// True if it is at its default place, has not been shown yet, and no place was stored.
    [[nodiscard]] bool isUnplaced() const { return unplaced_; }

    /// The part of the window that the user can drag: the title up to the close button.
    [[nodiscard]] QRect grip() const;
    void comeIntoReach(const Screens& screens) { place.comeIntoReach(grip(), screens); }

    std::function<void()> onClose;    ///< the close button, or the window system's close
    std::function<void()> onActivate; ///< the window became the active one

    /// Called with a key that no control has taken. Returns true if it is a key of the program.
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

/// The coordinate that centres a window on a screen, in twips.
[[nodiscard]] float middleTwips(int screenPx, int windowPx);

/// The coordinate of a window that ends `fromEnd` twips before the end of a screen, in twips.
[[nodiscard]] float endTwips(int screenPx, int windowPx, float fromEnd);

} // namespace velorin
