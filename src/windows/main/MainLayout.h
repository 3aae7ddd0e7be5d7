// The layout of the main window and its scroll bars: how many cells fit, which are shown, and the
// place of every control.
#pragma once

#include <QMetaObject>

#include <array>
#include <cstdint>

class QScrollBar;

namespace velorin {

class MusicTableau;
class PercussionTableau;
class Picmain;
class PolyTableau;
class TableauDesk;
struct Studio;

/// Handles the changes of both scroll bars of the work area. A move of the thumb runs the `_Scroll`
/// handler once, any other change of a value runs the `_Change` handler once.
class MainLayout {
public:
    MainLayout(Studio& studio, Picmain& area, MusicTableau& music, PercussionTableau& percussion,
               PolyTableau& poly, TableauDesk& desk);
    ~MainLayout();
    MainLayout(const MainLayout&) = delete;
    MainLayout& operator=(const MainLayout&) = delete;

    void Form_Resize();
    void HScroll1_Change(); ///< yields after the view is set, so another call may run inside it
    void HScroll1_Scroll();
    void VScroll1_Change();
    void VScroll1_Scroll();
    void Comm10_Click(); ///< stores how far `FirstColumn` moved since the last call

private:
    void placeFrame(int widthPx, int heightPx);
    void countCells(int widthPx);
    void placeMusicBox();
    void placeCompanions();
    void placeScrollBars();
    void clampView();
    void setUpScrollBars();
    void drawAll();

    Studio& studio_;
    Picmain& area_;
    MusicTableau& music_;
    PercussionTableau& percussion_;
    PolyTableau& poly_;
    TableauDesk& desk_;
    std::array<QMetaObject::Connection, 2> scrolling_;
    std::int16_t priorFirstColumn_ = 0;
    std::int16_t columnDifference_ = 0;
};

} // namespace velorin
