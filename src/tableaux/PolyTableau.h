// The polyphonics tableau, `Pic1`: eight lanes of chord marks, and their painting with the mouse.
#pragma once

namespace velorin {

class MusicTableau;
class Picmain;
struct Studio;

class PolyTableau {
public:
    PolyTableau(Studio& studio, Picmain& area, MusicTableau& music)
        : studio_(studio), area_(area), music_(music) {}

    void DrawPolyTableau();
    void Pic1_MouseDown(int button, int shift, double x, double y);
    void Pic1_MouseMove(int button, int shift, double x, double y);
    void Pic1_MouseUp(int button, int shift, double x, double y);

private:
    void paintMark(double snapped, double y);
    void wipeMark(double snapped, double y);

    Studio& studio_;
    Picmain& area_;
    MusicTableau& music_;
};

} // namespace velorin
