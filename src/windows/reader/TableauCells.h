// The cells of a tableau as a screen reader finds them.
#pragma once

#include "windows/pen/Strokes.h"
#include "windows/reader/PlaceWords.h"

#include <QAccessible>
#include <QHash>
#include <QObject>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace velorin {

class PictureBox;

/// A cell of the screen, from 0. Row -1 is the head of a column, column -1 that of a row.
struct ScreenCell {
    int row = 0;
    int column = 0;
    [[nodiscard]] bool isHead() const { return row < 0 || column < 0; }
    bool operator==(const ScreenCell&) const = default;
};

/// What a screen reader can do with a cell.
enum class CellAction { go, press, hold, release, pressRight, holdRight };

/// What is shown of one tableau, and the accessible objects of its cells. They are made when they
/// are asked for, one for each cell of the screen, and deleted when the tableau shrinks or goes.
/// So there are never more than cells on the screen. A child of the tableau. User-interface thread.
class TableauCells : public QObject {
    Q_OBJECT

public:
    /// Both outlive this. A cell that `strokes` do not reach cannot be pressed.
    TableauCells(PictureBox& box, Tableau tableau, const Studio& studio, const Strokes& strokes);
    ~TableauCells() override;

    [[nodiscard]] int rows() const;
    [[nodiscard]] int columns() const;
    /// True for a cell or a head that is shown.
    [[nodiscard]] bool holds(ScreenCell cell) const;
    /// False if another tableau covers the cell.
    [[nodiscard]] bool isWithinReach(ScreenCell cell) const;

    [[nodiscard]] Spot spotOf(ScreenCell cell) const;
    /// What is said of the cell; the name of a head.
    [[nodiscard]] QString words(ScreenCell cell) const;
    /// In pixels of the screen.
    [[nodiscard]] QRect placeOf(ScreenCell cell) const;
    [[nodiscard]] bool isSelected(int column) const;
    /// No cell outside the tableau; `place` in its pixels.
    [[nodiscard]] std::optional<ScreenCell> cellAt(QPoint place) const;
    [[nodiscard]] std::optional<ScreenCell> cellOnScreen(QPoint place) const;

    /// The accessible object of the cell, or of a head; null outside. Owned by this.
    [[nodiscard]] QAccessibleInterface* object(ScreenCell cell);
    [[nodiscard]] bool hasFocus() const;
    [[nodiscard]] QObject* tableau() const;
    /// How many objects there are, for tests.
    [[nodiscard]] int objects() const { return static_cast<int>(ids_.size()); }

    /// The cell of the pen; none if the pen is elsewhere or not shown. Must be set.
    std::function<std::optional<ScreenCell>()> cursor;
    /// What was said last of that cell. Empty: the whole sentence.
    std::function<QString()> cursorWords;
    /// Reports that the cursor has moved, or has other words now.
    void reportCursor(bool hasMoved);

    /// Called after the reader has its answer.
    std::function<void(ScreenCell cell, CellAction action)> onAction;
    void act(ScreenCell cell, CellAction action);

    /// A mouse button goes down on the tableau, before the tableau knows.
    std::function<void(ScreenCell cell)> onPress;
    /// A mouse button went up, and the tableau has handled it.
    std::function<void()> onReleased;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dropOutside();

    PictureBox& box_;
    Tableau tableau_;
    const Studio& studio_;
    const Strokes& strokes_;
    QHash<quint32, QAccessible::Id> ids_;
};

} // namespace velorin
