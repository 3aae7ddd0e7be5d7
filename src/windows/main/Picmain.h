// `Picmain`, the work area of the main window: the tableaux, the controls around them, and the
// off-screen pictures.
//
//   MusicBox                 the music tableau
//   Beatbox, Pic1            the percussion strip above it; the chord lanes below it
//   PicX                     the note names at the left
//   TopBar(0) to TopBar(18)  the bar numbers; there is no TopBar(14)
//   TopBarOverlay            takes the clicks on the bar numbers
//   Shape2, Label10          the ground of the bar numbers; "Note #" at its left end
//   Pt1, Label8(0) to (7)    the legend of the chord lanes and its chips
//   Picture11                never shown; locked and unlocked together with the tableaux
//   HScroll1, VScroll1       the scroll bars of columns and pitches
//   SwapScreen               the saved pixels of `MusicBox`
//   BlueBox, RedBox          the pictures of the selection and of the position marker
//   GreenBox                 kept to their height; nothing draws from it
#pragma once

#include "platform/CheckedArray.h"
#include "windows/main/InkLabel.h"
#include "windows/main/PictureBox.h"
#include "windows/main/Ruler.h"

#include <QScrollBar>
#include <QWidget>

namespace velorin {

/// Layout only: makes the controls with their names as object names, and paints the ground, the
/// ruler and the legend. The owner of the work area sets the handlers. The rectangles here are
/// replaced by `MainLayout::Form_Resize`.
class Picmain : public QWidget {
    Q_OBJECT

public:
    explicit Picmain(QWidget* parent);

    QWidget* Picture11; ///< never shown
    Ruler* Shape2;      ///< the ground of the bar numbers
    InkLabel* Label10;  ///< "Note #"
    /// Bar numbers, indices 0 to 13 and 15 to 18; entry 14 is null.
    platform::CheckedArray<InkLabel*, 19> TopBar{};
    PictureBox* TopBarOverlay; ///< takes the clicks on the bar numbers; paints nothing
    PictureBox* PicX;          ///< note names
    QWidget* Pt1;              ///< legend of the chord lanes
    platform::CheckedArray<QWidget*, 8> Label8{};
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
