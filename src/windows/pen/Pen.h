// The pen: draws in the tableaux by keyboard.
#pragma once

#include "windows/pen/Strokes.h"

#include <QObject>

#include <array>
#include <functional>
#include <memory>
#include <optional>

namespace velorin {

class PenRing;

/// A ring round a cell of the tableau that has the keyboard. The first arrow shows it; then it
/// moves, presses and releases there with the events of a mouse (see `Strokes`). It goes with
/// Escape, with a press of the mouse and with the focus, and releases first what it holds, where it
/// is. When the focus comes back after a menu, another window or a song, so does the pen.
///
/// The tableaux see no move of a pen that is not held: such a move of a mouse changes no cell, no
/// message and no picture, only tool tips.
///
/// User-interface thread only.
class Pen : public QObject {
    Q_OBJECT

public:
    /// Must be destroyed before the widgets of the sheet.
    explicit Pen(const PenSheet& sheet);
    ~Pen() override;

    [[nodiscard]] bool isShown() const { return shown_.has_value(); }
    [[nodiscard]] bool isHeld() const { return strokes_.isHeld(); }
    /// Where it is; where it was last, if it is not shown.
    [[nodiscard]] Place place() const { return place_; }
    [[nodiscard]] Reach reach(Tableau tableau) const { return strokes_.reach(tableau); }

    /// Shows it there and gives the tableau the keyboard. If the place is beyond the visible cells,
    /// the scroll bars move by the difference, as far as they go. A held pen stays in its tableau
    /// and in what is visible: the cell of its press would scroll away. In the strip it may leave
    /// through the lower edge, as a mouse that makes the strip higher.
    ///
    /// False if it got less far, or if the tableau is hidden or locked; a locked one calls
    /// `onRefused`.
    bool moveTo(Place target);
    /// Button 1 left, 2 right. Nothing happens if the pen is not shown or is held already.
    void press(int button);
    void release();
    void putAway();

    /// For all that draws here without a mouse, so that it counts as held.
    [[nodiscard]] Strokes& strokes() { return strokes_; }

    // Any of these may be empty.

    /// After a move, and when it is shown: then both are the same place.
    std::function<void(const Place& from, const Place& to)> onMoved;
    std::function<void(int button, const Place& pressed, const Place& released)> onReleased;
    /// Its tableau is locked. Set by the main window, whose line of state says it.
    std::function<void()> onRefused;
    /// Its place or its look has changed, or it was shown or put away. Set by the main window.
    std::function<void()> onChanged;
    /// Gives a tableau the keyboard. Set by the main window.
    std::function<void(QWidget& box)> onFocusNeeded;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool filterBox(Tableau tableau, QEvent& event);
    bool filterKey(Tableau tableau, QEvent& event);
    bool filterLockedKey(QEvent& event);
    void pressKey(Tableau tableau, int key, bool isControl);
    bool releaseKey(int key);
    void step(int columns, int lines);
    void gotFocus(Tableau tableau, bool comesBack);
    void lostFocus(Tableau tableau, bool isMenu);
    void fit();
    void show(Tableau tableau);
    void hide();
    void scrollTo(Place& target, const Reach& reach);
    [[nodiscard]] Reach reachHeld(Tableau tableau) const;
    [[nodiscard]] Place placeIn(Tableau tableau) const;
    [[nodiscard]] std::optional<Tableau> tableauOf(const QObject* box) const;
    void paint();
    void watchMouse(bool isShown);

    PenSheet sheet_;
    Strokes strokes_;
    PenRing* ring_;
    std::unique_ptr<QObject> mouse_; ///< watches for presses of the mouse
    std::optional<Tableau> shown_;
    Place place_;
    Place pressed_;
    std::array<std::optional<Place>, 3> last_; ///< of each tableau
    std::optional<Tableau> left_;              ///< where it was shown when the focus went
    bool isPressing_ = false;
    bool endsAfterPress_ = false; ///< a menu took the focus during the press
};

} // namespace velorin
