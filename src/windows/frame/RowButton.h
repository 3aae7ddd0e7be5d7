// The coloured controls of a row: the option that selects it, the box that turns on its chords, and
// the chip above its volume.
#pragma once

#include "model/RowColors.h"

#include <QAbstractButton>
#include <QWidget>

#include <functional>

namespace velorin {

/// The digit or letter that a row shows, one character; row [0, 13).
[[nodiscard]] QString rowFace(int row);

/// Paints the face of a row [0, 13) in its colour, without a ring.
void paintRowFace(QPainter& painter, const QRect& place, int row);

// A control with a background colour of its own has it as the property "backColor".

/// An option button: a face in the row's colour, with a ring while it is selected.
///
///     +------------+   the widget is 3 px larger than the face on each side
///     | +--------+ |   for the ring: 2 px, 1 px clear of the face
///     | |   1    | |
///     | +--------+ |
///     +------------+
///
/// It does not select itself: a press of the left button or the space bar runs `onPress`.
class RowButton : public QAbstractButton {
    Q_OBJECT

public:
    RowButton(QWidget* parent, int row, Colour colour);

    static constexpr int ring = 3; ///< pixels round the face

    std::function<void()> onPress;
    std::function<void()> onMove; ///< the pointer has moved over it

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    int row_;
    QColor colour_;
};

/// A check box whose whole face is the row's colour, with a tick when it is set.
class RowCheck : public QAbstractButton {
    Q_OBJECT

public:
    RowCheck(QWidget* parent, int row, Colour colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int row_;
    QColor colour_;
};

/// A plain chip in the row's colour with its face.
class RowChip : public QWidget {
    Q_OBJECT

public:
    RowChip(QWidget* parent, int row, Colour colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int row_;
    QColor colour_;
};

} // namespace velorin
