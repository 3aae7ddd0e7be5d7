// The percussion tableau, `Beatbox`: draws and edits rows 8 to 12.
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
    void Beatbox_GotFocus(); ///< selects row 8 if none of rows 8, 10, 11 and 12 is selected
    void Beatbox_LostFocus();
    [[nodiscard]] bool isRowChosen() const; ///< one of rows 8, 10, 11 and 12 is selected
    void Check2_Click(); ///< shows or hides the strip. Called by its name in transcripts only.

private:
    void selectPercussionGroup();
    void raiseHoverRow();
    void beginBeat();
    void eraseBeat();
    void pressInSelectMode(int button);
    void showToolTip(double x);
    bool dragBeat(double x); ///< false for a move within the column of the last one that counted
    void resizeStrip(double y);
    void endBeat();

    Studio& studio_;
    Picmain& area_;
    MusicTableau& music_;
    NoteSounding& sounding_;
    TableauDesk& desk_;
};

} // namespace velorin
