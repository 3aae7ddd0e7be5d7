// Makes and places the controls of `Form2`.
#include "windows/editing/Form2.h"
#include "windows/frame/FramePaint.h"
#include "windows/frame/ScrollBar.h"
#include "windows/texts/DescribedControls.h"

#include <QPainter>

#include <array>

namespace velorin {

namespace {

struct ButtonPlace {
    const char* picture;
    bool compose; ///< in the right strip
    int left;     ///< pixels in its strip
};

constexpr platform::CheckedArray<ButtonPlace, editButton::last + 1> buttons{{
    {},
    {"edit-01-clear", true, 6},
    {"edit-02-open", true, 40},
    {"edit-03-save", true, 74},
    {"edit-04-play", true, 118},
    {"edit-05-play-selection", true, 152},
    {"edit-06-pause", true, 186},
    {"edit-07-stop", true, 220},
    {"edit-08-return", true, 254},
    {"edit-09-position-on", true, 298},
    {"edit-10-loop-off", true, 332},
    {"edit-11-mode-draw", false, 6},
    {"edit-12-copy", false, 50},
    {"edit-13-cut", false, 84},
    {"edit-14-paste-overwrite", false, 118},
    {"edit-15-paste-insert", false, 152},
    {"edit-16-insert-spaces", false, 186},
    {"edit-17-duplicate", false, 262},
}};

/// A strip of buttons with separators between its groups.
class Strip : public QWidget {
public:
    Strip(QWidget* parent, const char* name, QRect place, std::array<int, 2> separators)
        : QWidget(parent), separators_(separators) {
        setObjectName(name);
        setGeometry(place);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintRoundStrip(painter, rect());
        for (const int x : separators_) {
            paintSeparator(painter, x, 10, 22);
        }
    }

private:
    std::array<int, 2> separators_;
};

QLineEdit* makeBox(QWidget* parent, const char* name, QRect place, const char* text) {
    auto* const box = new QLineEdit(QString::fromLatin1(text), parent);
    box->setObjectName(name);
    box->setGeometry(place);
    box->setAlignment(Qt::AlignCenter);
    return box;
}

/// A scroll bar that shows only its two arrows; the high value is at the top.
QScrollBar* makeSpin(QWidget* parent, const char* name, int left, int highest, int step,
                     int value) {
    auto* const bar = new ScrollBar(Qt::Vertical, parent, ScrollBar::Top::high);
    bar->setObjectName(name);
    bar->setProperty("role", "spin");
    bar->setGeometry(left, 4, 18, 24);
    bar->setRange(0, highest);
    bar->setSingleStep(step);
    bar->setPageStep(step);
    bar->setValue(value);
    return bar;
}

QCheckBox* makeCheck(QWidget* parent, const char* name, QRect place, const char* caption) {
    auto* const box = new QCheckBox(QString::fromLatin1(caption), parent);
    box->setObjectName(name);
    box->setGeometry(place);
    return box;
}

} // namespace

void Form2::makeButtons() {
    auto* const edit = new Strip(this, "toolbEdit", QRect(8, 36, 300, 42), {43, 256});
    auto* const compose = new Strip(this, "ToolbCompose", QRect(314, 36, 370, 42), {111, 291});
    // From left to right: the left strip begins with button 11, the mode.
    for (int step = 0; step < editButton::last; ++step) {
        const int index = (step + 10) % editButton::last + 1;
        const ButtonPlace& place = buttons[index];
        auto* const button =
            new PictureButton(place.compose ? compose : edit, elementName("Cmd2", index),
                              QString::fromLatin1(place.picture));
        button->setGeometry(place.left, 4, 32, 34);
        button->setIconSize(QSize(24, 24));
        Cmd2[index] = button;
        if (index == 16) {
            Text1 = makeBox(edit, "Text1", QRect(220, 9, 30, 24), "1");
        }
    }
}

void Form2::makeLowerHalf() {
    Picture2 = new QFrame(this);
    Picture2->setObjectName("Picture2");
    Picture2->setProperty("role", "panel");
    Picture2->setGeometry(8, 82, 676, 32);
    const auto label = [this](std::size_t index, QRect place, const char* text) {
        Label6[index] = new QLabel(QString::fromLatin1(text), Picture2);
        Label6[index]->setObjectName(elementName("Label6", static_cast<int>(index)));
        Label6[index]->setGeometry(place);
    };
    label(0, QRect(12, 5, 38, 22), "Beats");
    Text5 = makeBox(Picture2, "Text5", QRect(54, 4, 38, 24), "28");
    VScroll3 = makeSpin(Picture2, "VScroll3", 94, 60, 4, 28);
    label(1, QRect(148, 5, 46, 22), "Repeat");
    Text4 = makeBox(Picture2, "Text4", QRect(198, 4, 38, 24), "28");
    VScroll4 = makeSpin(Picture2, "VScroll4", 238, 60, 4, 28);
    label(2, QRect(292, 5, 40, 22), "Notes");
    Text3 = makeBox(Picture2, "Text3", QRect(336, 4, 38, 24), "60");
    VScroll2 = makeSpin(Picture2, "VScroll2", 376, 99, 10, 60);
    Check1 = makeCheck(Picture2, "Check1", QRect(448, 5, 100, 22), "Percussion");
    Check2 = makeCheck(Picture2, "Check2", QRect(558, 5, 104, 22), "Instruments");
    Check1->setChecked(true);
    Check2->setChecked(true);
    chkgraphics = makeCheck(this, "chkgraphics", QRect(), "");
    loopcheck = makeCheck(this, "loopcheck", QRect(), "");
    chkgraphics->hide();
    loopcheck->hide();
    // The window gets the moves of the pointer everywhere on it.
    setMouseTracking(true);
    for (QWidget* ground : findChildren<QWidget*>())
        ground->setMouseTracking(true);
}

} // namespace velorin
