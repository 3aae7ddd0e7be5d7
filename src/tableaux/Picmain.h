// The work area of the main window: the tableaux, what stands around them, and the off-screen
// pictures.
#pragma once

#include "tableaux/InkLabel.h"
#include "tableaux/PictureBox.h"

#include <QScrollBar>
#include <QWidget>

#include <array>

namespace velorin {

/// Layout only: it makes the controls under their names (the object names are the same, an index in
/// round brackets) and paints the ground, the ruler and the legend. What they do is set by whoever
/// owns the work area. Rectangles are the design ones until the first layout; `Form_Resize`
/// replaces what it computes.
class Picmain : public QWidget {
    Q_OBJECT

public:
    explicit Picmain(QWidget* parent);

    QWidget* Picture11; ///< never seen; it is locked and unlocked together with the tableaux
    QWidget* Shape2;    ///< the ground of the bar numbers
    InkLabel* Label10;  ///< "Note #"
    /// Bar numbers, indices 0..13 and 15..18; entry 14 is null, since there is no such label.
    std::array<InkLabel*, 19> TopBar{};
    PictureBox* TopBarOverlay; ///< catches the clicks on the bar numbers; paints nothing
    PictureBox* PicX;          ///< note names
    QWidget* Pt1;              ///< legend of the chord lanes
    std::array<QWidget*, 8> Label8{};
    PictureBox* MusicBox;
    PictureBox* Pic1;    ///< chord lanes
    PictureBox* Beatbox; ///< percussion, above `MusicBox`
    QScrollBar* HScroll1;
    QScrollBar* VScroll1;

    // Off-screen pictures, kept to the size of `MusicBox` (the last two 12 wide).
    Picture SwapScreen;
    Picture BlueBox;
    Picture RedBox;
    Picture GreenBox;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void makeBarNumbers();
    void makeTableaux();
    void makeLegend();
    void makeScrollBars();
};

} // namespace velorin
