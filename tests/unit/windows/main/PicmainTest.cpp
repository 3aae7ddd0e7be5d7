// The controls of the work area, and how a picture control passes on the mouse.
#include "windows/main/Picmain.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

#include <array>

using namespace velorin;

namespace {

void send(QWidget& widget, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held,
          Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QMouseEvent event(type, QPointF(31, 17), QPointF(31, 17), button, held, keys);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

TEST(Picmain, ControlsAreAtTheirDesignRectangles) {
    const Picmain area(nullptr);
    EXPECT_EQ(area.PicX->geometry(), QRect(3, 23, 26, 209));
    EXPECT_EQ(area.MusicBox->geometry(), QRect(29, 25, 498, 208));
    EXPECT_EQ(area.Beatbox->geometry(), QRect(29, 23, 498, 12));
    EXPECT_EQ(area.Pic1->geometry(), QRect(32, 232, 477, 58));
    EXPECT_EQ(area.Pt1->geometry(), QRect(15, 232, 16, 70));
    EXPECT_EQ(area.HScroll1->value(), 20);
    EXPECT_EQ(area.VScroll1->value(), 61);
    EXPECT_EQ(area.MusicBox->picture.ScaleWidth(), 498);
    EXPECT_EQ(area.MusicBox->picture.fillStyle, FillStyle::horizontalLines);
    EXPECT_EQ(area.MusicBox->picture.fillColor, rgb(192, 255, 255));
    EXPECT_EQ(area.Beatbox->picture.ground(), rgb(192, 255, 192));
}

TEST(Picmain, ControlsAreFoundByTheirNames) {
    const Picmain area(nullptr);
    for (const char* name : {"MusicBox", "Beatbox", "Pic1", "PicX", "Pt1", "Label8(0)", "Label8(7)",
                             "TopBar(0)", "TopBar(13)", "TopBar(18)", "TopBarOverlay", "Label10",
                             "Shape2", "HScroll1", "VScroll1", "Picture11"})
        EXPECT_NE(area.findChild<QWidget*>(name), nullptr) << name;
    EXPECT_EQ(area.findChild<QWidget*>("TopBar(14)"), nullptr);
    EXPECT_EQ(area.Beatbox->toolTip(), "Percussion Tableau");
    EXPECT_EQ(area.PicX->toolTip(), "Octave; Note");
    EXPECT_EQ(area.Label8[2]->toolTip(), "Ch 3 Polyphonics");
    EXPECT_EQ(area.Label10->text(), "Note #");
}

TEST(Picmain, PercussionStripLiesAboveTheTableau) {
    const Picmain area(nullptr);
    const QObjectList& children = area.children();
    const auto place = [&](QObject* child) { return children.indexOf(child); };
    EXPECT_LT(place(area.Shape2), place(area.TopBar[0]));
    EXPECT_LT(place(area.TopBar[18]), place(area.Label10));
    EXPECT_LT(place(area.Label10), place(area.TopBarOverlay));
    EXPECT_LT(place(area.TopBarOverlay), place(area.PicX));
    EXPECT_LT(place(area.PicX), place(area.Pt1));
    EXPECT_LT(place(area.Pt1), place(area.MusicBox));
    EXPECT_LT(place(area.MusicBox), place(area.Pic1));
    EXPECT_LT(place(area.Pic1), place(area.Beatbox));
    EXPECT_LT(place(area.Beatbox), place(area.HScroll1));
}

TEST(PictureBox, HandsOnButtonsKeysAndPlace) {
    PictureBox box(nullptr, "MusicBox", 0);
    std::vector<std::array<double, 4>> told;
    const auto note = [&](int button, int shift, double x, double y) {
        told.push_back({double(button), double(shift), x, y});
    };
    box.onMouseDown = box.onMouseMove = box.onMouseUp = note;
    send(box, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    send(box, QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, Qt::ShiftModifier);
    send(box, QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
    send(box, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::RightButton);
    send(box, QEvent::MouseMove, Qt::NoButton, Qt::RightButton,
         Qt::ControlModifier | Qt::AltModifier);
    send(box, QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton);
    const std::vector<std::array<double, 4>> expected{{1, 0, 31, 17}, {2, 1, 31, 17},
                                                      {0, 0, 31, 17}, {1, 0, 31, 17},
                                                      {2, 6, 31, 17}, {4, 0, 31, 17}};
    EXPECT_EQ(told, expected);
}

TEST(PictureBox, PressIsHandledBeforeTheFocusMoves) {
    PictureBox box(nullptr, "MusicBox", 0);
    std::string order;
    box.onMouseDown = [&](int, int, double, double) { order += "press "; };
    box.onPressed = [&] { order += "pressed"; };
    send(box, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(order, "press pressed");
}

TEST(PictureBox, MoveWithANegativeSizeIsRefusedWhole) {
    PictureBox box(nullptr, "MusicBox", 0);
    EXPECT_TRUE(box.place(5, 6, 70, 80));
    EXPECT_FALSE(box.place(1, 1, -1, 80));
    EXPECT_FALSE(box.place(1, 1, 70, -1));
    EXPECT_EQ(box.geometry(), QRect(5, 6, 70, 80));
    EXPECT_EQ(box.picture.ScaleHeight(), 80);
    EXPECT_TRUE(box.place(5, 6, 0, 0));
    EXPECT_EQ(box.picture.ScaleWidth(), 0);
}

TEST(PictureBox, PointersAreNumbered) {
    PictureBox box(nullptr, "MusicBox", 0);
    const std::vector<std::pair<int, Qt::CursorShape>> shapes{
        {pointerUpArrow, Qt::UpArrowCursor},
        {pointerCross, Qt::CrossCursor},
        {pointerDefault, Qt::ArrowCursor},
        {pointerOwn, Qt::CrossCursor}}; // until its own cursor is given
    for (const auto& [pointer, shape] : shapes) {
        box.setMousePointer(pointer);
        EXPECT_EQ(box.MousePointer(), pointer);
        EXPECT_EQ(box.cursor().shape(), shape);
    }
    box.setOwnCursor(Qt::PointingHandCursor);
    EXPECT_EQ(box.cursor().shape(), Qt::PointingHandCursor);
}

TEST(PictureBox, ShowsItsPictureAlsoWhenDisabled) {
    PictureBox box(nullptr, "MusicBox", rgb(255, 255, 255));
    box.place(0, 0, 50, 40);
    box.picture.fillBox(10, 10, 19, 19, rgb(255, 0, 0));
    box.setEnabled(false);
    const QImage shown = box.grab().toImage();
    EXPECT_EQ(toColour(shown.pixel(10, 10)), rgb(255, 0, 0));
    EXPECT_EQ(toColour(shown.pixel(20, 20)), rgb(255, 255, 255));
}

TEST(PictureBox, FocusByAKeyShowsARingAndByTheMouseNone) {
    PictureBox box(nullptr, "MusicBox", rgb(255, 255, 255));
    box.place(0, 0, 50, 40);
    const auto corner = [&](Qt::FocusReason reason) {
        QFocusEvent event(QEvent::FocusIn, reason);
        QApplication::sendEvent(&box, &event);
        return toColour(box.grab().toImage().pixel(1, 20));
    };
    EXPECT_EQ(corner(Qt::TabFocusReason), rgb(68, 204, 255));
    EXPECT_EQ(box.picture.pixel(1, 20), rgb(255, 255, 255));
    QFocusEvent out(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&box, &out);
    EXPECT_EQ(corner(Qt::ActiveWindowFocusReason), rgb(68, 204, 255));
    EXPECT_EQ(corner(Qt::MouseFocusReason), rgb(255, 255, 255));
}
