// Makes and places the controls of `Form3`.
#include "model/RowColors.h"
#include "platform/CheckedArray.h"
#include "windows/frame/DropDownList.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/RowButton.h"
#include "windows/frame/ScrollBar.h"
#include "windows/lists/InstrumentList.h"
#include "windows/setup/Form3.h"
#include "windows/texts/DescribedControls.h"

#include <QRadioButton>

namespace velorin {

namespace {

Colour rowColour(int row) {
    return channelColors[row];
}

/// The percussion rows from left to right; row 9 is the last.
constexpr platform::CheckedArray<int, 5> percussionOrder{8, 10, 11, 12, 9};

} // namespace

void Form3::makeRowsPage() {
    auto* const page = new QWidget(SSTab1);
    SSTab1->addTab(page, QStringLiteral("Channels, Instruments"));

    QFrame* const music = makePanel(page, QRect(8, 8, 498, 78));
    makeLabel(music, QRect(12, 6, 260, 16), QStringLiteral("Channels:    Instrument Group"),
              "heading");
    for (int row = 0; row < musicRows; ++row) {
        makeRowOption(music, row, row);
    }
    auto* const instruments = new InstrumentList(music, melodicInstruments(), studio_, sounding_);
    Combo1 = named(instruments, "Combo1", QRect(292, 26, 194, 26));
    connectTaken(*instruments, &Form3::Combo1_Click);

    QFrame* const percussion = makePanel(page, QRect(8, 94, 498, 78));
    makeLabel(percussion, QRect(12, 6, 260, 16), QStringLiteral("Percussion Group"), "heading");
    for (int place = 0; place < percussionOrder.size(); ++place) {
        makeRowOption(percussion, percussionOrder[place], place);
    }
    auto* const sounds = new InstrumentList(percussion, percussionSounds(), studio_, sounding_);
    Combo5 = named(sounds, "Combo5", QRect(292, 26, 194, 26));
    connectTaken(*sounds, &Form3::Combo5_Click);

    // A spare option that nothing uses.
    named(new QRadioButton(percussion), elementName("TrackSel", scoreRows), QRect())->hide();

    TrackSel[0]->setChecked(true);
    TrackHide[0]->setEnabled(false);
    setTrackHidePicture(0, true);
}

void Form3::makeRowOption(QWidget* panel, int row, int place) {
    constexpr int ring = RowButton::ring;
    TrackSel[row] = named(new RowButton(panel, row, rowColour(row)), elementName("TrackSel", row),
                          QRect(12 + 34 * place - ring, 27 - ring, 28 + 2 * ring, 22 + 2 * ring));
    // So far below the option that a pointer hits the one that it means: 12 pixels from the middle
    // of the box.
    constexpr int boxTop = 55;
    auto* const box = new QCheckBox(panel);
    box->setProperty("role", "hide");
    box->setProperty("backColor", QColor(Qt::white));
    TrackHide[row] =
        named(box, elementName("TrackHide", row), QRect(17 + 34 * place, boxTop, 18, 18));
}

void Form3::makePolyphonicsPage() {
    auto* const page = new QWidget(SSTab1);
    SSTab1->addTab(page, QStringLiteral("Polyphonics"));
    Chkpoly =
        named(new QCheckBox(QStringLiteral("Tableau"), page), "Chkpoly", QRect(14, 12, 90, 22));
    Combo3 = named(new DropDownList(page), "Combo3", QRect(118, 10, 388, 26));

    QFrame* const panel = makePanel(page, QRect(8, 48, 498, 124));
    makeLabel(panel, QRect(14, 42, 80, 22), QStringLiteral("Select"), "heading");
    makeLabel(panel, QRect(14, 84, 80, 22), QStringLiteral("Strumming"), "heading");
    for (int row = 0; row < musicRows; ++row) {
        makeLabel(panel, QRect(112 + 46 * row, 14, 28, 16), rowFace(row), "note")
            ->setAlignment(Qt::AlignCenter);
        Ch[row] = named(new RowCheck(panel, row, rowColour(row)), elementName("Ch", row),
                        QRect(112 + 46 * row, 40, 28, 26));
    }
    for (int row = 0; row < musicRows; ++row) {
        Chkstrum[row] = named(new QCheckBox(panel), elementName("Chkstrum", row),
                              QRect(118 + 46 * row, 87, 16, 16));
    }
}

void Form3::makeSetupPage() {
    auto* const page = new QWidget(SSTab1);
    SSTab1->addTab(page, QStringLiteral("Setup"));
    makeLabel(page, QRect(14, 10, 90, 20), QStringLiteral("Tempo"), "heading");
    HScroll1 = named(new ScrollBar(Qt::Horizontal, page), "HScroll1", QRect(118, 13, 328, 14));
    HScroll1->setRange(20, 300);
    HScroll1->setPageStep(10);
    HScroll1->setValue(100);
    HScroll1->setFocusPolicy(Qt::StrongFocus);
    TempoLabel = makeLabel(page, QRect(456, 10, 44, 20), QStringLiteral("100"), "value");
    TempoLabel->setObjectName("TempoLabel");
    TempoLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    makeLabel(page, QRect(118, 29, 328, 14), QStringLiteral("Slow  |  Fast"), "note")
        ->setAlignment(Qt::AlignCenter);
    makeLabel(page, QRect(14, 50, 90, 26), QStringLiteral("Midi Device"), "heading");
    Combo2 = named(new DropDownList(page), "Combo2", QRect(118, 50, 388, 26));
    makeLabel(page, QRect(14, 85, 90, 20), QStringLiteral("Volume"), "heading");
    HScroll2 = named(new ScrollBar(Qt::Horizontal, page), "HScroll2", QRect(118, 88, 388, 14));
    HScroll2->setRange(0, 127);
    HScroll2->setValue(127);
    HScroll2->setFocusPolicy(Qt::StrongFocus);
    makeVolumes(page);
}

void Form3::makeVolumes(QWidget* page) {
    QFrame* const panel = makePanel(page, QRect(8, 114, 498, 58));
    const auto makeBox = [this, panel](int row, int left) {
        (new RowChip(panel, row, rowColour(row)))->setGeometry(left, 7, 34, 14);
        auto* const box = named(new QLineEdit(QStringLiteral("127"), panel),
                                elementName("vol", row), QRect(left, 25, 34, 24));
        box->setStyleSheet("font-size: 11px;");
        box->setAlignment(Qt::AlignCenter);
        vol[row] = box;
    };
    for (int row = 0; row < musicRows; ++row) {
        makeBox(row, 10 + 40 * row);
    }
    for (int place = 0; place < 4; ++place) {
        makeBox(percussionOrder[place], 338 + 40 * place);
    }
}

} // namespace velorin
