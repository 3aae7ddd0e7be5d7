// Mouse editing of the music tableau: rubber bands, selections, erasing, tool tips.
#pragma once

namespace velorin {

class MusicTableau;
class NoteSounding;
class Picmain;
class PolyTableau;
class TableauDesk;
struct Studio;

/// Buttons: 0 none, 1 left, 2 right; `x` and `y` in pixels of `MusicBox`. The grids change at the
/// release alone; until then the picture carries a rubber band. Nothing here tests whether a place
/// lies within the score: a cell outside the grids is skipped.
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
    void MusicBox_GotFocus();          ///< makes sure that a music row is selected
    void FunctionBut_Click(int index); ///< sets `EditMode` and the pointer
    void NoteLabel(int value);         ///< keeps the letter name of a cell in `LastNoteLabel`

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
    // A move within the column of the last one that counted does nothing: these then return false.
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
