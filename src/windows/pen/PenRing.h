// The ring of the pen round a cell.
#pragma once

#include <QRect>
#include <QWidget>

namespace velorin {

/// Above the tableaux and no part of their pictures; the mouse passes through it.
///
///     . . . . . .     halo   white
///     . # # # # .     ring   dark
///     . # - - # .     light  sky, cream while held down
///     . # -   #       the cell stays free
class PenRing : public QWidget {
    Q_OBJECT

public:
    explicit PenRing(QWidget* area);

    /// Shows the ring round `cells`, in pixels of `box`, a child of the area.
    void showRound(const QWidget& box, const QRect& cells, bool isHeld);

    /// The widths of its lines at that device pixel ratio, in device pixels.
    struct Lines {
        int halo = 1;
        int ring = 2;
        int light = 1;
        bool operator==(const Lines&) const = default;
    };
    [[nodiscard]] static Lines linesAt(double ratio);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPoint box_;  ///< the corner of the tableau, in pixels of the ring
    QRect cells_; ///< in pixels of the tableau
    bool isHeld_ = false;
};

} // namespace velorin
