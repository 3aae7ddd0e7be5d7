// The controls of `Form3` and where they stand.
#include "bars/ScrollBar.h"
#include "controls/DescribedControls.h"
#include "score/RowColors.h"
#include "shell/Form3.h"
#include "shell/PlacedControls.h"
#include "shell/RowButton.h"

#include <QRadioButton>

namespace velorin {

namespace {

Colour rowColour(int row) {
    return channelColors.at(static_cast<std::size_t>(row));
}

/// The percussion rows in the order in which they stand; row 9 comes last.
constexpr std::array<int, 5> percussionOrder{8, 10, 11, 12, 9};

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
    Combo1 = named(new QComboBox(music), "Combo1", QRect(292, 26, 194, 26));

    QFrame* const percussion = makePanel(page, QRect(8, 94, 498, 78));
    makeLabel(percussion, QRect(12, 6, 260, 16), QStringLiteral("Percussion Group"), "heading");
    for (int place = 0; place < static_cast<int>(percussionOrder.size()); ++place) {
        makeRowOption(percussion, percussionOrder[static_cast<std::size_t>(place)], place);
    }
    Combo5 = named(new QComboBox(percussion), "Combo5", QRect(292, 26, 194, 26));

    // A spare option that nothing uses.
    named(new QRadioButton(percussion), elementName("TrackSel", scoreRows), QRect())->hide();

    TrackSel[0]->setChecked(true);
    TrackHide[0]->setEnabled(false);
    setTrackHidePicture(0, true);
}

void Form3::makeRowOption(QWidget* panel, int row, int place) {
    const auto index = static_cast<std::size_t>(row);
    constexpr int ring = RowButton::ring;
    TrackSel[index] = named(new RowButton(panel, row, rowColour(row)), elementName("TrackSel", row),
                            QRect(12 + 34 * place - ring, 27 - ring, 28 + 2 * ring, 22 + 2 * ring));
    auto* const box = new QCheckBox(panel);
    box->setProperty("role", "hide");
    box->setProperty("backColor", QColor(Qt::white));
    TrackHide[index] =
        named(box, elementName("TrackHide", row), QRect(17 + 34 * place, 54, 18, 18));
}

void Form3::makePolyphonicsPage() {
    auto* const page = new QWidget(SSTab1);
    SSTab1->addTab(page, QStringLiteral("Polyphonics"));
    Chkpoly =
        named(new QCheckBox(QStringLiteral("Tableau"), page), "Chkpoly", QRect(14, 12, 90, 22));
    Combo3 = named(new QComboBox(page), "Combo3", QRect(118, 10, 388, 26));

    QFrame* const panel = makePanel(page, QRect(8, 48, 498, 124));
    makeLabel(panel, QRect(14, 42, 80, 22), QStringLiteral("Select"), "heading");
    makeLabel(panel, QRect(14, 84, 80, 22), QStringLiteral("Strumming"), "heading");
    for (int row = 0; row < musicRows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        makeLabel(panel, QRect(112 + 46 * row, 14, 28, 16), rowFace(row), "note")
            ->setAlignment(Qt::AlignCenter);
        Ch[index] = named(new RowCheck(panel, row, rowColour(row)), elementName("Ch", row),
                          QRect(112 + 46 * row, 40, 28, 26));
    }
    for (int row = 0; row < musicRows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        Chkstrum[index] = named(new QCheckBox(panel), elementName("Chkstrum", row),
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
    Combo2 = named(new QComboBox(page), "Combo2", QRect(118, 50, 388, 26));
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
        vol[static_cast<std::size_t>(row)] = box;
        std::string& text = volText[static_cast<std::size_t>(row)];
        text = box->text().toStdString();
        connect(box, &QLineEdit::textChanged, this,
                [&text](const QString& now) { text = now.toStdString(); });
    };
    for (int row = 0; row < musicRows; ++row) {
        makeBox(row, 10 + 40 * row);
    }
    for (int place = 0; place < 4; ++place) {
        makeBox(percussionOrder[static_cast<std::size_t>(place)], 338 + 40 * place);
    }
}

} // namespace velorin
