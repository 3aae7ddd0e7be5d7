// Mouse editing of the music tableau: rubber bands, selections, erasing, tool tips.
#pragma once

#include <cstdint>

namespace velorin {

class MusicTableau;
class NoteSounding;
class Picmain;
class PolyTableau;
class TableauDesk;
struct Studio;

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
    void MusicBox_GotFocus();
    void FunctionBut_Click(int index); ///< sets `EditMode` and the pointer
    void NoteLabel(int value);

private:
    Studio& studio_;
    Picmain& area_;
    MusicTableau& tableau_;
    PolyTableau& poly_;
    NoteSounding& sounding_;
    TableauDesk& desk_;
};

} // namespace velorin
