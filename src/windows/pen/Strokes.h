// Presses, moves and releases at a cell, for everything that draws without a mouse.
#pragma once

#include "windows/pen/Place.h"

#include <QPointF>
#include <QRect>

class QEvent;
class QScrollBar;
class QWidget;

namespace velorin {

/// What is drawn on. All outlive the strokes.
struct PenSheet {
    QWidget& music; ///< `MusicBox`; its parent carries the ring of the pen
    QWidget& strip; ///< `Beatbox`
    QWidget& lanes; ///< `Pic1`
    QScrollBar& across;
    QScrollBar& down;
};

/// The cells whose middle a mouse can reach; none if the tableau is hidden.
struct Reach {
    int columns = 0;   ///< [0, columns)
    int firstLine = 0; ///< [firstLine, endLine)
    int endLine = 0;
    [[nodiscard]] bool isEmpty() const { return columns <= 0 || firstLine >= endLine; }
    bool operator==(const Reach&) const = default;
};

/// Sends the tableaux the events of a mouse, so nothing happens that a mouse would not do. A locked
/// tableau refuses them as it refuses a mouse. A handler may open a menu or process pending events.
/// User-interface thread only.
class Strokes {
public:
    explicit Strokes(const PenSheet& sheet) : sheet_(sheet) {}

    // Buttons: `leftButton` 1 or `rightButton` 2. A second press without a release in between does
    // nothing, and so does a move or a release without a press. A move and a release are in the
    // tableau of the press.
    void press(const Place& place, int button);
    void move(const Place& place);
    void release(const Place& place);

    [[nodiscard]] bool isHeld() const { return held_ != 0; }
    [[nodiscard]] int heldButton() const { return held_; } ///< 0 for none

    /// Null for `numbers`.
    [[nodiscard]] QWidget* box(Tableau tableau) const;
    [[nodiscard]] Reach reach(Tableau tableau) const;
    /// In pixels of the tableau.
    [[nodiscard]] static QRect cell(const Place& place);
    [[nodiscard]] static QPointF middle(const Place& place);
    /// True while an event of this class is sent, for an event that is part of it.
    [[nodiscard]] bool isOwn(const QEvent& event) const;

private:
    void send(const Place& place, int type, int button, int held);

    PenSheet sheet_;
    Tableau pressed_ = Tableau::music;
    int held_ = 0;
    int sending_ = 0; ///< events that are being sent
};

} // namespace velorin
