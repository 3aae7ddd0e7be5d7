// What the window shows beside the pictures of the tableaux: feet below pale tails, rows that no
// key of MIDI has, names of further rows, and "Drums" beside the percussion strip.
#pragma once

#include "windows/sheet/TailFeet.h"

#include <QFont>
#include <QObject>
#include <QRect>

#include <functional>

namespace velorin {

class MusicTableau;
class Picmain;
class PictureBox;
struct View;

/// The lines of the tableau that are above or below the pitches [0, 128), in pixels of the tableau.
struct RowsOutside {
    QRect above; ///< empty if there are none
    QRect below; ///< the same
};
[[nodiscard]] RowsOutside rowsOutside(const View& view, QSize tableau);

/// How many lines of the names the percussion strip covers by half or more, [0, 128]. `strip` and
/// `names` are in pixels of the work area.
[[nodiscard]] int linesCovered(const QRect& strip, const QRect& names);

/// Paints above the pictures of `MusicBox` and `PicX`; no pixel of a picture changes, and the mouse
/// does what it did. User-interface thread only.
class SheetMarks : public QObject {
    Q_OBJECT

public:
    /// All outlive this.
    SheetMarks(Studio& studio, Picmain& area, MusicTableau& music);
    ~SheetMarks() override;

    std::function<void()> onDrawn; ///< after each draw of the music tableau. May be empty.

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paintMusic(QPainter& painter);
    void paintNames(QPainter& painter);
    void paintFurtherNames(QPainter& painter);
    void paintDrums(QPainter& painter);

    Studio& studio_;
    Picmain& area_;
    MusicTableau& music_;
    TailFeet feet_;
    QFont nameFont_;
    QFont drumsFont_;
};

} // namespace velorin
