// Mouse editing of the music tableau: rubber bands, selections, erasing, tool tips.
#pragma once

namespace velorin {

class MusicTableau;
class NoteSounding;
class Picmain;
class PolyTableau;
class TableauDesk;
struct Studio;

/// Buttons: 0 none, 1 left, 2 right; `x` and `y` in pixels of `MusicBox`. A left drag changes the
/// grids only at the release; until then the picture shows a rubber band. Nothing here tests if a
/// place is within the score: the grids ignore a cell outside.
class MusicMouse {
public:
    MusicMouse(Studio& studio, Picmain& area, MusicTableau& tableau, PolyTableau& poly,
               NoteSounding& sounding, TableauDesk& desk)
        : studio_(studio),
          area_(area),
          tableau_(tableau),
          poly_(poly),
          sounding_(sounding),
          desk_(desk) {}

    void MusicBox_MouseDown(int button, int shift, double x, double y);
    void MusicBox_MouseMove(int button, int shift, double x, double y);
    void MusicBox_MouseUp(int button, int shift, double x, double y);
    void MusicBox_GotFocus();          ///< selects music row 0 if no music row is selected
    void FunctionBut_Click(int index); ///< sets `EditMode` and the pointer
    void NoteLabel(int value);         ///< stores the letter name of a cell in `LastNoteLabel`

private:
    void selectMusicGroup();
    void pressInDrawMode(int button);
    void beginNote();
    void eraseOrMark();
    void pressInMarkerMode(int button);
    void pressInSelectMode(int button);
    void beginSelection();
    void outlineSelection(int right);
    void showToolTip(double x);
    // Both return false, and do nothing, for a move within the column of the last move that
    // counted.
    bool dragNote(double x);
    bool dragSelection(double x);
    void releaseInDrawMode(int button, double x);
    void endNote();
    void endSelection(double x);
    void redraw();

    Studio& studio_;
    Picmain& area_;
    MusicTableau& tableau_;
    PolyTableau& poly_;
    NoteSounding& sounding_;
    TableauDesk& desk_;
};

} // namespace velorin
