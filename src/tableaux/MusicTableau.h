// The music tableau: how `MusicBox` is drawn from the grids, and the pixels that are saved and put
// back.
#pragma once

#include <QFont>

#include <optional>

namespace velorin {

class Picmain;
class Picture;
struct Studio;

/// Draws a score's notes, bands and bar lines, tint and marker into `target`, which may be any
/// picture. This is the whole of `DrawNoteArray`; `blue` and `red` are the sources of the tint and
/// of the marker. Bands follow `SharpRow` as `DrawNoteNames` left it. Needs no application object.
void drawNoteArray(Picture& target, const Picture& blue, const Picture& red, Studio& studio);

class MusicTableau {
public:
    MusicTableau(Studio& studio, Picmain& area) : studio_(studio), area_(area) {}

    void DrawNoteArray();
    [[nodiscard]] unsigned draws() const { return draws_; } ///< calls of `DrawNoteArray` so far
    void DrawNoteNames(); ///< refreshes `SharpRow` too, so it comes before `DrawNoteArray`
    void DrawBarNumbers();

    // Pixels of `MusicBox` saved in `SwapScreen` and put back; lines and columns of 12 pixels,
    // counted from the edge of the screen.
    void GetRow(int line); ///< 15 high, the whole width
    void PutRow(int line);
    void GetColumn(int column); ///< 13 wide, the whole height
    void PutColumn(int column);
    void GetBox();
    void PutBox();

    /// The playing position: a bar 4 wide. Leaves the fill state transparent.
    void drawPlayMarker(int offset);
    /// Moves `StartColumn`, unless the song plays.
    void TopBarOverlay_MouseDown(int button, int shift, double x, double y);

private:
    Studio& studio_;
    Picmain& area_;
    unsigned draws_ = 0;
    std::optional<QFont> nameFont_; ///< found at the first use
};

} // namespace velorin
