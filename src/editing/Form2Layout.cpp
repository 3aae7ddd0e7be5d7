// The controls of `Form2` and where they stand.
#include "bars/ScrollBar.h"
#include "editing/Form2.h"
#include "shell/FramePaint.h"
#include "shell/Shortcuts.h"

#include <QPainter>

namespace velorin {

namespace {

struct ButtonPlace {
    const char* picture;
    const char* tip;
    bool compose; ///< in the right strip
    int left;     ///< pixels in its strip
};

constexpr std::array<ButtonPlace, editButtons + 1> buttons{{
    {},
    {"edit-01-clear", "Clear all notes", true, 6},
    {"edit-02-open", "Open File", true, 40},
    {"edit-03-save", "Save as  Score (sng) or MIDI file (mid)", true, 74},
    {"edit-04-play", "Play notes", true, 118},
    {"edit-05-play-selection", "Play Selection", true, 152},
    {"edit-06-pause", "Pause", true, 186},
    {"edit-07-stop", "Stop", true, 220},
    {"edit-08-return", "Return to Start", true, 254},
    {"edit-09-position-on", "Show playing position", true, 298},
    {"edit-10-loop-off", "Loop song", true, 332},
    {"edit-11-mode-draw", "Draw/Select mode toggle", false, 6},
    {"edit-12-copy", "Copy Selection", false, 50},
    {"edit-13-cut", "Cut Selection", false, 84},
    {"edit-14-paste-overwrite", "Paste (Overwrite)", false, 118},
    {"edit-15-paste-insert", "Paste (Insert)", false, 152},
    {"edit-16-insert-spaces", "Insert # Space(s) ", false, 186},
    {"edit-17-duplicate", "Duplicate notes", false, 262},
}};

constexpr std::size_t playButton = 4; ///< its picture has a tip of its own

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

QLineEdit* makeBox(QWidget* parent, const char* name, QRect place, const char* text,
                   const char* tip) {
    auto* const box = new QLineEdit(QString::fromLatin1(text), parent);
    box->setObjectName(name);
    box->setGeometry(place);
    box->setAlignment(Qt::AlignCenter);
    box->setToolTip(QString::fromLatin1(tip));
    box->setAccessibleName(QString::fromLatin1(tip));
    return box;
}

/// A bar of two arrows; its top is the high value.
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

QCheckBox* makeCheck(QWidget* parent, const char* name, QRect place, const char* caption,
                     const char* tip) {
    auto* const box = new QCheckBox(QString::fromLatin1(caption), parent);
    box->setObjectName(name);
    box->setGeometry(place);
    box->setToolTip(QString::fromLatin1(tip));
    box->setAccessibleName(QString::fromLatin1(tip));
    return box;
}

} // namespace

void Form2::makeButtons() {
    auto* const edit = new Strip(this, "toolbEdit", QRect(8, 36, 300, 42), {43, 256});
    auto* const compose = new Strip(this, "ToolbCompose", QRect(314, 36, 370, 42), {111, 291});
    // In reading order: the left strip holds the buttons from the mode's on.
    for (int step = 0; step < editButtons; ++step) {
        const auto index = static_cast<std::size_t>((step + 10) % editButtons + 1);
        const ButtonPlace& place = buttons[index];
        auto* const button =
            new PictureButton(place.compose ? compose : edit, QStringLiteral("Cmd2(%1)").arg(index),
                              QString::fromLatin1(place.picture));
        button->setGeometry(place.left, 4, 32, 34);
        button->setIconSize(QSize(24, 24));
        button->setToolTip(QString::fromLatin1(place.tip));
        button->setAccessibleName(QString::fromLatin1(place.tip).trimmed());
        button->setAccessibleDescription(shortcutsOf(editShortcuts, static_cast<int>(index)));
        button->setProperty("pictureTip", index == playButton ? QStringLiteral("Play score")
                                                              : QString::fromLatin1(place.tip));
        Cmd2[index] = button;
        if (index == 16) {
            Text1 = makeBox(edit, "Text1", QRect(220, 9, 30, 24), "1", "Insert # of spaces");
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
        Label6[index]->setObjectName(QStringLiteral("Label6(%1)").arg(index));
        Label6[index]->setGeometry(place);
    };
    label(0, QRect(12, 5, 38, 22), "Beats");
    Text5 = makeBox(Picture2, "Text5", QRect(54, 4, 38, 24), "28",
                    "Total # of Playable notes in duplicated cycle");
    VScroll3 = makeSpin(Picture2, "VScroll3", 94, 60, 4, 28);
    label(1, QRect(148, 5, 46, 22), "Repeat");
    Text4 = makeBox(Picture2, "Text4", QRect(198, 4, 38, 24), "28",
                    "Total # of notes in duplicated cycle");
    VScroll4 = makeSpin(Picture2, "VScroll4", 238, 60, 4, 28);
    label(2, QRect(292, 5, 40, 22), "Notes");
    Text3 = makeBox(Picture2, "Text3", QRect(336, 4, 38, 24), "60", "Total duplicated notes");
    VScroll2 = makeSpin(Picture2, "VScroll2", 376, 99, 10, 60);
    Check1 = makeCheck(Picture2, "Check1", QRect(448, 5, 100, 22), "Percussion",
                       "Duplicate Percussion section");
    Check2 = makeCheck(Picture2, "Check2", QRect(558, 5, 104, 22), "Instruments",
                       "Duplicate Instrument section");
    Check1->setChecked(true);
    Check2->setChecked(true);
    chkgraphics = makeCheck(this, "chkgraphics", QRect(), "", "Show playing position");
    loopcheck = makeCheck(this, "loopcheck", QRect(), "", "Loop song");
    chkgraphics->hide();
    loopcheck->hide();
    // The pointer is followed wherever it is on the window.
    setMouseTracking(true);
    for (QWidget* ground : findChildren<QWidget*>())
        ground->setMouseTracking(true);
}

} // namespace velorin
