// The polyphonics tableau, `Pic1`: draws eight lanes of chord marks, and edits them with the mouse.
#pragma once

#include <cstdint>

namespace velorin {

class MusicTableau;
class Picmain;
struct Studio;

class PolyTableau {
public:
    PolyTableau(Studio& studio, Picmain& area, MusicTableau& music)
        : studio_(studio), area_(area), music_(music) {}

    void DrawPolyTableau();
    /// Draws the lanes if marks have changed since the last draw, other than by the mouse here.
    void drawIfStale();
    void Pic1_MouseDown(int button, int shift, double x, double y);
    void Pic1_MouseMove(int button, int shift, double x, double y);
    void Pic1_MouseUp(int button, int shift, double x, double y);

private:
    void paintMark(double snapped, double y);
    void wipeMark(double snapped, double y);
    void store(int lane, double snapped, std::int16_t mark);

    Studio& studio_;
    Picmain& area_;
    MusicTableau& music_;
    std::uint64_t changesShown_ = 0; ///< of the marks: those that the lanes show
};

} // namespace velorin
