// The percussion tableau, `Beatbox`: how rows 8..12 are drawn and edited.
#pragma once

namespace velorin {

class MusicTableau;
class NoteSounding;
class Picmain;
class TableauDesk;
struct Studio;

class PercussionTableau {
public:
    PercussionTableau(Studio& studio, Picmain& area, MusicTableau& music, NoteSounding& sounding,
                      TableauDesk& desk)
        : studio_(studio), area_(area), music_(music), sounding_(sounding), desk_(desk) {}

    void DrawBeatArray();
    void Beatbox_MouseDown(int button, int shift, double x, double y);
    void Beatbox_MouseMove(int button, int shift, double x, double y);
    void Beatbox_MouseUp(int button, int shift, double x, double y);
    void Beatbox_GotFocus(); ///< makes sure that a percussion row is selected; row 9 does not count
    void Beatbox_LostFocus();
    [[nodiscard]] bool isRowChosen() const; ///< the test of `Beatbox_GotFocus`
    void Check2_Click();                    ///< shows or hides the strip

private:
    void selectPercussionGroup();
    void raiseHoverRow();
    void beginBeat();
    void eraseBeat();
    void pressInSelectMode(int button);
    void showToolTip(double x);
    bool dragBeat(double x); ///< false if the move stays in the column of the last that counted
    void resizeStrip(double y);
    void endBeat();

    Studio& studio_;
    Picmain& area_;
    MusicTableau& music_;
    NoteSounding& sounding_;
    TableauDesk& desk_;
};

} // namespace velorin
