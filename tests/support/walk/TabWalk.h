// Walks through a window with the Tab key, as a user without a mouse does.
#pragma once

#include <string>
#include <vector>

class QWidget;

namespace velorin {

/// A control that the Tab key reaches.
struct TabStop {
    QWidget* control;
    /// The pixels of the control and around it that the focus changes so that they differ by 3 : 1
    /// from what was there, or from an unchanged pixel beside them.
    int ringPixels;
};

struct TabWalk {
    std::vector<TabStop> stops;
    bool comesRound =
        false; ///< false if a control keeps the keyboard, or the walk leaves the window
    [[nodiscard]] std::vector<std::string> names() const;
    [[nodiscard]] bool reaches(const QWidget& control) const;
};

enum class Direction { forward, back };

/// Activates a shown window and presses the Tab key until it comes back to the first stop. A page
/// of text counts once, however many links it has.
[[nodiscard]] TabWalk walkByTab(QWidget& window, Direction direction = Direction::forward);

/// The enabled controls that a mouse can press now: no other control and no edge hides them whole.
/// Finds painted controls too, by a press of a button that no mouse has.
[[nodiscard]] std::vector<QWidget*> controlsForTheMouse(QWidget& window);

/// What the arrow keys reach from a stop: the other options of its group. Selects them.
[[nodiscard]] std::vector<QWidget*> reachedByArrows(QWidget& stop);

/// True if `next` comes after `stop` for a reader: to the right of it or below, or on top of it.
[[nodiscard]] bool isReadingOrder(const QWidget& stop, const QWidget& next);

/// The controls for the mouse that are smaller than 24 x 24 pixels and too near to another one: the
/// circle of 24 pixels around their middle reaches it, or its circle.
[[nodiscard]] std::vector<std::string> crowdedTargets(QWidget& window);

/// The object name, or for a nameless part the class and the caption.
[[nodiscard]] std::string nameOf(const QWidget& control);

} // namespace velorin
