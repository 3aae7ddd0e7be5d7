// The layout of the main window and its scroll bars: what fits, what is shown, and where everything
// stands.
#pragma once

namespace velorin {

class MusicTableau;
class PercussionTableau;
class Picmain;
class PolyTableau;
class TableauDesk;
struct Studio;

class MainLayout {
public:
    MainLayout(Studio& studio, Picmain& area, MusicTableau& music, PercussionTableau& percussion,
               PolyTableau& poly, TableauDesk& desk)
        : studio_(studio),
          area_(area),
          music_(music),
          percussion_(percussion),
          poly_(poly),
          desk_(desk) {}

    void Form_Resize();
    void HScroll1_Change();
    void HScroll1_Scroll();
    void VScroll1_Change();
    void VScroll1_Scroll();
    void Comm10_Click();

private:
    Studio& studio_;
    Picmain& area_;
    MusicTableau& music_;
    PercussionTableau& percussion_;
    PolyTableau& poly_;
    TableauDesk& desk_;
};

} // namespace velorin
