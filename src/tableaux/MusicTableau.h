// The music tableau: how `MusicBox` is drawn from the grids, and the pixels that are saved and put
// back.
#pragma once

namespace velorin {

class Picmain;
class Picture;
struct Studio;

/// Draws a score's notes, bands and bar lines, tint and marker into `target`, which may be any
/// picture. This is the whole of `DrawNoteArray`; `blue` and `red` are the sources of the tint and
/// of the marker.
void drawNoteArray(Picture& target, const Picture& blue, const Picture& red, Studio& studio);

class MusicTableau {
public:
    MusicTableau(Studio& studio, Picmain& area) : studio_(studio), area_(area) {}

    void DrawNoteArray();
    void DrawNoteNames();
    void DrawBarNumbers();
    void GetRow(int line);
    void PutRow(int line);
    void GetColumn(int column);
    void PutColumn(int column);
    void GetBox();
    void PutBox();
    void drawPlayMarker(int offset);
    void TopBarOverlay_MouseDown(int button, int shift, double x, double y);

private:
    Studio& studio_;
    Picmain& area_;
};

} // namespace velorin
