// The tableaux as a screen reader finds and uses them, in the whole program.
#include "windows/reader/TableauReader.h"
#include "WholeProgram.h"
#include "windows/main/Form1.h"
#include "windows/pen/Pen.h"
#include "windows/strip/StripTools.h"
#include "windows/texts/KeyTable.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QDialog>

using namespace velorin;

namespace {

using Node = QAccessibleInterface;

class TableauReaderTest : public testing::Test {
protected:
    TableauReaderTest() {
        program.begin();
        form.findChild<TableauReader*>()->isHeard = [] { return true; };
        form.resize(900, 600);
        form.layout.Form_Resize();
        form.show();
        form.activateWindow();
        QCoreApplication::processEvents();
    }

    static Node* tableOf(QWidget* box) { return QAccessible::queryAccessibleInterface(box); }
    static Node* cell(QWidget* box, int row, int column) {
        return tableOf(box)->tableInterface()->cellAt(row, column);
    }
    static void act(Node* node, const char* name) {
        node->actionInterface()->doAction(QLatin1String(name));
        QCoreApplication::processEvents();
    }
    static std::string nameOf(Node* node) { return node->text(QAccessible::Name).toStdString(); }
    /// What the line in the strip tells a reader.
    std::string announced() {
        return nameOf(
            QAccessible::queryAccessibleInterface(form.findChild<QWidget*>("stripState")));
    }
    [[nodiscard]] int cellOf(int row, int column) const {
        return program.studio().score.NoteArray.at(row, column);
    }

    WholeProgram whole;
    Program& program = whole.program;
    Form1& form = program.form1();
    QWidget* music = form.area->MusicBox;
    QWidget* strip = form.area->Beatbox;
    QWidget* lanes = form.area->Pic1;
};

} // namespace

TEST_F(TableauReaderTest, TableauIsATableWithHeads) {
    Node* const table = tableOf(music);
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_EQ(nameOf(table), "Music Tableau");
    ASSERT_NE(table->tableInterface(), nullptr);
    EXPECT_EQ(table->tableInterface()->rowDescription(5), "G 5");
    EXPECT_EQ(table->tableInterface()->columnDescription(5), "Column 6, bar 2");
    Node* const one = cell(music, 5, 5);
    EXPECT_EQ(nameOf(one), "G 5, column 6, bar 2. Empty.");
    EXPECT_EQ(one->role(), QAccessible::Cell);
    EXPECT_EQ(nameOf(one->tableCellInterface()->rowHeaderCells().first()), "G 5");
    EXPECT_EQ(nameOf(one->tableCellInterface()->columnHeaderCells().first()), "Column 6, bar 2");
    EXPECT_EQ(table->child(table->indexOfChild(one)), one);
    EXPECT_EQ(table->childAt(one->rect().center().x(), one->rect().center().y()), one);
    EXPECT_EQ(tableOf(lanes)->tableInterface()->rowDescription(1), "Channel 2");
    EXPECT_EQ(tableOf(strip)->tableInterface()->rowDescription(0), "Line 1");
}

TEST_F(TableauReaderTest, ObjectsAreMadeOnceAndGoWhenTheTableauShrinks) {
    auto* const cells = music->findChild<TableauCells*>();
    EXPECT_LE(cells->objects(), 1);
    Node* const table = tableOf(music);
    for (int i = 0; i < table->childCount(); ++i)
        ASSERT_NE(table->child(i), nullptr) << i;
    const int all = table->childCount();
    EXPECT_EQ(cells->objects(), all);
    for (int i = 0; i < all; ++i)
        ASSERT_NE(table->child(i), nullptr) << i;
    EXPECT_EQ(cells->objects(), all);
    const QAccessible::Id last = QAccessible::uniqueId(table->child(all - 1));
    form.resize(660, 500);
    form.layout.Form_Resize();
    QCoreApplication::processEvents();
    EXPECT_LT(table->childCount(), all);
    EXPECT_LE(cells->objects(), table->childCount());
    EXPECT_EQ(QAccessible::accessibleInterface(last), nullptr);
}

TEST_F(TableauReaderTest, PressDrawsAndSaysWhatItDid) {
    Node* const place = cell(music, 5, 4);
    act(place, "Press");
    EXPECT_EQ(cellOf(0, 4), 60);
    EXPECT_EQ(nameOf(place), "Note of 1 column drawn, G 5, channel 1.");
    EXPECT_EQ(announced(), "Note of 1 column drawn, G 5, channel 1.");
    act(place, "Press");
    EXPECT_EQ(nameOf(place), "Nothing has changed.");
    act(place, "Right press");
    EXPECT_EQ(cellOf(0, 4), -1);
    EXPECT_EQ(nameOf(place), "Note of 1 column erased, G 5, channel 1.");
}

TEST_F(TableauReaderTest, HeldHereAndReleasedThereIsALongNote) {
    act(cell(music, 5, 4), "Hold");
    EXPECT_TRUE(form.pen->isHeld());
    act(cell(music, 5, 7), "Release");
    EXPECT_FALSE(form.pen->isHeld());
    EXPECT_EQ(nameOf(cell(music, 5, 7)), "Note of 4 columns drawn, G 5, channel 1.");
    EXPECT_EQ(nameOf(cell(music, 5, 4)),
              "G 5, column 5, bar 2. Note of 4 columns, channel 1, Nylon Guitar.");
    act(cell(music, 5, 6), "SetFocus");
    EXPECT_EQ(nameOf(cell(music, 5, 6)), "column 7. Held note, channel 1.");
}

TEST_F(TableauReaderTest, WordsOfTheLastMoveAreForgottenWhenTheScoreChanges) {
    act(cell(music, 5, 5), "SetFocus");
    act(cell(music, 5, 6), "SetFocus");
    EXPECT_EQ(nameOf(cell(music, 5, 6)), "column 7. Empty.");
    program.studio().score.NoteArray.write(0, 6, 60);
    EXPECT_EQ(nameOf(cell(music, 5, 6)),
              "G 5, column 7, bar 2. Note of 1 column, channel 1, Acoustic Grand Piano.");
}

TEST_F(TableauReaderTest, SelectionIsInTheTable) {
    program.studio().run.EditMode = editMode::select;
    act(cell(music, 5, 4), "Hold");
    act(cell(music, 5, 7), "Release");
    EXPECT_EQ(tableOf(music)->tableInterface()->selectedColumns(), (QList<int>{4, 5, 6, 7}));
    EXPECT_TRUE(cell(music, 2, 5)->state().selected);
    EXPECT_EQ(nameOf(cell(music, 5, 7)), "Columns 5 to 8 selected.");
}

TEST_F(TableauReaderTest, LanesAreMarkedAndClearedOnTheWholeWay) {
    const auto said = [this](int column) { return nameOf(cell(lanes, 1, column)); };
    act(cell(lanes, 1, 4), "Press");
    EXPECT_EQ(said(4), "Chord mark set, channel 2, column 5. No note of Channel 2 begins in column "
                       "5, so this mark changes nothing yet.");
    act(cell(lanes, 1, 5), "Hold");
    act(cell(lanes, 1, 8), "Release");
    EXPECT_TRUE(said(8).starts_with("4 chord marks set, channel 2, columns 6 to 9."));
    act(cell(lanes, 1, 3), "Right hold"); // sets a mark here, and clears those on the way
    act(cell(lanes, 1, 8), "Release");
    EXPECT_TRUE(said(8).starts_with("Chord mark set, channel 2, column 4. 5 chord marks cleared, "
                                    "channel 2, columns 5 to 9."));
}

TEST_F(TableauReaderTest, NothingIsPressedWhileTheSongPlays) {
    Node* const place = cell(music, 5, 4);
    form.desk.enableTableaux(false);
    EXPECT_TRUE(place->state().disabled);
    act(place, "Press");
    EXPECT_EQ(cellOf(0, 4), -1);
    form.desk.enableTableaux(true);
    act(place, "Press");
    EXPECT_EQ(cellOf(0, 4), 60);
}

TEST_F(TableauReaderTest, NothingIsPressedBehindADialog) {
    Node* const place = cell(music, 5, 4);
    {
        QDialog dialog(&form);
        dialog.setModal(true);
        dialog.show();
        act(place, "Press");
        EXPECT_EQ(cellOf(0, 4), -1);
    }
    act(place, "Press");
    EXPECT_EQ(cellOf(0, 4), 60);
}

TEST_F(TableauReaderTest, CellBelowTheStripCannotBePressed) {
    strip->setGeometry(strip->x(), strip->y(), strip->width(), 36);
    Node* const covered = cell(music, 0, 4);
    EXPECT_TRUE(covered->state().offscreen);
    EXPECT_TRUE(covered->actionInterface()->actionNames().isEmpty());
    EXPECT_FALSE(cell(music, 5, 4)->state().offscreen);
}

TEST_F(TableauReaderTest, MouseIsHeardToo) {
    form.pen->strokes().press({Tableau::music, 4, 5}, 1);
    form.pen->strokes().release({Tableau::music, 4, 5});
    QCoreApplication::processEvents();
    EXPECT_EQ(announced(), "Note of 1 column drawn, G 5, channel 1.");
}

TEST_F(TableauReaderTest, KeySaysWhereThePenIs) {
    act(cell(music, 5, 5), "SetFocus");
    act(cell(music, 5, 6), "SetFocus");
    form.onHearingKey(HearingCommand::whereIsThePen);
    EXPECT_EQ(announced(), "G 5, column 7, bar 2. Empty.");
    EXPECT_EQ(nameOf(cell(music, 5, 6)), "G 5, column 7, bar 2. Empty.");
}

TEST_F(TableauReaderTest, PenSoundsSoftlyWhenItIsSwitchedOn) {
    whole.host.midi.log.clear();
    act(cell(music, 5, 5), "SetFocus");
    EXPECT_TRUE(whole.host.midi.log.empty());
    form.onHearingKey(HearingCommand::penSounds);
    EXPECT_EQ(program.shortHint.text(),
              "The pen sounds the notes that it meets. Ctrl+L makes it silent.");
    act(cell(music, 5, 6), "SetFocus");
    ASSERT_EQ(whole.host.midi.log.size(), 4U);
    EXPECT_TRUE(whole.host.midi.log.back().ends_with("9F 43 32")); // G 5 is key 67
    whole.host.time.pass(scripted::nanosecondsPerSecond);
    EXPECT_TRUE(whole.host.midi.log.back().ends_with("8F 43 00"));
    EXPECT_EQ(whole.host.settings.find("Settings", "Pen sounds"), "True");
    whole.host.midi.log.clear();
    program.studio().run.IsPlaying = flagSet;
    act(cell(music, 5, 7), "SetFocus");
    program.studio().run.IsPlaying = flagClear;
    EXPECT_TRUE(whole.host.midi.log.empty());
    form.onHearingKey(HearingCommand::penSounds);
    act(cell(music, 5, 8), "SetFocus");
    EXPECT_TRUE(whole.host.midi.log.empty());
}
