// The layout of the main window and its scroll bars.
#include "windows/main/MainLayout.h"

#include "drawing/CellGrid.h"
#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "studio/Studio.h"
#include "windows/main/MusicTableau.h"
#include "windows/main/PercussionTableau.h"
#include "windows/main/Picmain.h"
#include "windows/main/PolyTableau.h"
#include "windows/main/TableauDesk.h"

#include <QSignalBlocker>

namespace velorin {

namespace {

constexpr int frameLeft = 26;
constexpr int frameTop = 25;

/// Rule: a rectangle with a negative size is refused whole, so in a very small window the controls
/// stay where they were. Held by tableaux/layout.
void place(QWidget& widget, int x, int y, int widthPx, int heightPx) {
    if (widthPx >= 0 && heightPx >= 0)
        widget.setGeometry(x, y, widthPx, heightPx);
}

void setWidth(PictureBox& box, int widthPx) {
    box.place(box.x(), box.y(), widthPx, box.height());
}

void setHeight(PictureBox& box, int heightPx) {
    box.place(box.x(), box.y(), box.width(), heightPx);
}

/// Sets the range and the page without running the handler, even if they change the value. Then
/// sets the value, which runs the handler if it differs. A value outside the range is ignored.
void setUp(QScrollBar& bar, int minimum, int maximum, int largeChange, int value) {
    {
        const QSignalBlocker quiet(bar);
        bar.setMinimum(minimum);
        bar.setMaximum(maximum);
        if (largeChange >= 1)
            bar.setPageStep(largeChange);
    }
    if (value >= bar.minimum() && value <= bar.maximum())
        bar.setValue(value);
}

void assign(std::int16_t& variable, double value) {
    if (const auto number = platform::toInt16(value))
        variable = *number;
}

} // namespace

MainLayout::MainLayout(Studio& studio, Picmain& area, MusicTableau& music,
                       PercussionTableau& percussion, PolyTableau& poly, TableauDesk& desk)
    : studio_(studio),
      area_(area),
      music_(music),
      percussion_(percussion),
      poly_(poly),
      desk_(desk) {
    QScrollBar* across = area_.HScroll1;
    QScrollBar* down = area_.VScroll1;
    scrolling_[0] = QObject::connect(across, &QScrollBar::valueChanged, across, [this, across] {
        across->isSliderDown() ? HScroll1_Scroll() : HScroll1_Change();
    });
    scrolling_[1] = QObject::connect(down, &QScrollBar::valueChanged, down, [this, down] {
        down->isSliderDown() ? VScroll1_Scroll() : VScroll1_Change();
    });
    area_.MusicBox->onRescaled = [this] { Form_Resize(); };
}

MainLayout::~MainLayout() {
    for (const QMetaObject::Connection& connection : scrolling_)
        QObject::disconnect(connection);
}

void MainLayout::Form_Resize() {
    if (desk_.isMinimised())
        return;
    View& view = studio_.view;
    view.ResizeInProgress = flagSet;
    // The work area keeps its last picture until everything is in place. It is not hidden
    // meanwhile: hiding would take the focus from the tableau.
    area_.setUpdatesEnabled(false);
    const int width = desk_.innerWidth();
    placeFrame(width, desk_.innerHeight());
    countCells(width);
    placeMusicBox();
    placeCompanions();
    placeScrollBars();
    const int halfOfTheColumns = (view.VisibleColumns + 1) / 2;
    const int halfOfTheRows = (view.VisibleRows + 1) / 2;
    assign(view.ColumnScrollBias, halfOfTheColumns);
    assign(view.RowScrollBias, halfOfTheRows);
    clampView();
    setUpScrollBars();
    drawAll();
    view.ResizeInProgress = flagClear;
    area_.setUpdatesEnabled(true);
    area_.show();
}

void MainLayout::placeFrame(int widthPx, int heightPx) {
    if (widthPx >= 50)
        desk_.placeToolbMenu(frameLeft, frameTop, widthPx - 50);
    const int strip = desk_.toolbMenuHeight();
    place(area_, frameLeft, frameTop + strip, widthPx - 51, heightPx - 51 - strip);
    desk_.setPicture2Left(widthPx - desk_.picture2Width() - 40);
}

void MainLayout::countCells(int widthPx) {
    View& view = studio_.view;
    const int columns = (widthPx - 70) / cellPx - 1;
    assign(view.VisibleColumns, columns);
    // Rule: this divides by 16 although a line is 12 high, so in a tall window fewer lines have a
    // name and a band than fit. Held by tableaux/layout.
    assign(view.VisibleRows, area_.height() / 16.0 + 2);
}

void MainLayout::placeMusicBox() {
    const bool open = studio_.view.PolyOpen.isSet();
    area_.Pic1->setVisible(open);
    area_.Pt1->setVisible(open);
    PictureBox& music = *area_.MusicBox;
    setHeight(music, area_.height() - 100 + (open ? 0 : area_.Pic1->height()));
    setWidth(music, (studio_.view.VisibleColumns + 1) * cellPx + 1 - 35);
}

void MainLayout::placeCompanions() {
    const QRect music = area_.MusicBox->geometry();
    area_.Pic1->place(music.x(), music.y() + music.height() + 1, music.width(),
                      area_.Pic1->height());
    setWidth(*area_.Beatbox, music.width());
    const double ratio = area_.MusicBox->picture.ratio();
    area_.SwapScreen.resize(music.width(), music.height(), ratio);
    area_.BlueBox.resize(music.width(), music.height(), ratio);
    area_.GreenBox.resize(cellPx, music.height(), ratio);
    area_.RedBox.resize(cellPx, music.height(), ratio);
    setWidth(*area_.TopBarOverlay, music.width() - 1);
    place(*area_.Shape2, area_.Shape2->x(), area_.Shape2->y(), music.width() + 20,
          area_.Shape2->height());
    setHeight(*area_.PicX, music.height() - 1);
}

void MainLayout::placeScrollBars() {
    const QRect music = area_.MusicBox->geometry();
    const QRect above =
        studio_.view.PolyOpen.isSet() ? area_.Pic1->geometry() : area_.MusicBox->geometry();
    place(*area_.HScroll1, music.x(), above.y() + above.height() + 1, music.width() + 1,
          area_.HScroll1->height());
    area_.Pt1->move(area_.Pt1->x(), area_.Pic1->y());
    place(*area_.VScroll1, music.x() + music.width() + 1, music.y(), area_.VScroll1->width(),
          music.height());
}

void MainLayout::clampView() {
    View& view = studio_.view;
    assign(view.LastVisibleColumn, view.FirstColumn + view.VisibleColumns);
    if (view.LastVisibleColumn > lastShownColumn) {
        view.LastVisibleColumn = lastShownColumn;
        assign(view.FirstColumn, lastShownColumn - view.VisibleColumns);
    }
    assign(view.BottomPitch, view.TopPitch + view.VisibleRows);
    if (view.BottomPitch > lastPitch) {
        view.BottomPitch = lastPitch;
        assign(view.TopPitch, lastPitch - view.VisibleRows);
    }
}

/// Rule: the value of a bar is the middle of the view on the grid, not its first cell. Held by
/// tableaux/layout.
///
/// The second bar's values are computed after the first bar is set, whose handler may have yielded.
void MainLayout::setUpScrollBars() {
    const View& view = studio_.view;
    setUp(*area_.HScroll1, view.ColumnScrollBias,
          lastShownColumn - (view.VisibleColumns - view.ColumnScrollBias), view.VisibleColumns + 1,
          view.FirstColumn + view.ColumnScrollBias);
    setUp(*area_.VScroll1, view.RowScrollBias, lastPitch - (view.VisibleRows - view.RowScrollBias),
          view.VisibleRows + 1, view.TopPitch + view.RowScrollBias);
}

void MainLayout::drawAll() {
    music_.DrawNoteNames();
    music_.DrawBarNumbers();
    studio_.view.ViewChanged = flagSet;
    music_.DrawNoteArray();
    percussion_.DrawBeatArray();
    poly_.DrawPolyTableau();
}

void MainLayout::HScroll1_Change() {
    View& view = studio_.view;
    assign(view.FirstColumn, area_.HScroll1->value() - view.ColumnScrollBias);
    assign(view.LastVisibleColumn, view.FirstColumn + view.VisibleColumns);
    studio_.platform.loop.Yield();
    music_.DrawBarNumbers();
    if (!view.PlayerScroll.isSet()) {
        music_.DrawNoteArray();
        percussion_.DrawBeatArray();
    }
    view.ViewChanged = flagSet;
    poly_.DrawPolyTableau();
}

void MainLayout::HScroll1_Scroll() {
    Comm10_Click();
    HScroll1_Change();
}

void MainLayout::VScroll1_Change() {
    View& view = studio_.view;
    assign(view.TopPitch, area_.VScroll1->value() - view.RowScrollBias);
    assign(view.BottomPitch, view.TopPitch + view.VisibleRows);
    music_.DrawNoteNames();
    music_.DrawNoteArray();
    view.ViewChanged = flagSet;
}

void MainLayout::VScroll1_Scroll() {
    VScroll1_Change();
}

void MainLayout::Comm10_Click() {
    assign(columnDifference_, studio_.view.FirstColumn - priorFirstColumn_);
    priorFirstColumn_ = studio_.view.FirstColumn;
}

} // namespace velorin
