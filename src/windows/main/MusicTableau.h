// The music tableau: draws `MusicBox` from the grids, and saves and restores parts of its pixels.
#pragma once

#include <QFont>

#include <functional>
#include <optional>

namespace velorin {

class Picmain;
struct Studio;

class MusicTableau {
public:
    MusicTableau(Studio& studio, Picmain& area) : studio_(studio), area_(area) {}

    void DrawNoteArray();
    [[nodiscard]] unsigned draws() const { return draws_; } ///< calls of `DrawNoteArray` so far
    std::function<void()> onDrawn; ///< called after each `DrawNoteArray`. May be empty.
    void DrawNoteNames();          ///< also updates `SharpRow`; call it before `DrawNoteArray`
    void DrawBarNumbers();

    // `Get` saves pixels of `MusicBox` in `SwapScreen`, `Put` restores them. Lines and columns are
    // 12 pixels, counted from the edge of the tableau.
    void GetRow(int line); ///< 15 high, the whole width
    void PutRow(int line);
    void GetColumn(int column); ///< 13 wide, the whole height
    void PutColumn(int column);
    void GetBox();
    void PutBox();

    /// Draws the playing position, a bar 4 pixels wide. Leaves the fill state transparent.
    void drawPlayMarker(int offset);
    /// Moves `StartColumn`, unless the song plays.
    void TopBarOverlay_MouseDown(int button, int shift, double x, double y);

private:
    Studio& studio_;
    Picmain& area_;
    unsigned draws_ = 0;
    std::optional<QFont> nameFont_; ///< looked up at the first use
};

} // namespace velorin
