// Step entry on the real tableaux: rows, columns, the view, and what cannot be written.
#include "entry/StepEntry.h"

#include "support/GridText.h"
#include "support/TableauStage.h"
#include "windows/main/MusicMouse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace velorin {
namespace {

constexpr int keyOfPitch60 = 67;

/// Scrolls with the real bars.
class ScrollingDesk final : public NoDesk {
public:
    explicit ScrollingDesk(scripted::TableauStage& stage) : stage_(stage) {}

    void DrawNoteArray() override { stage_.music.DrawNoteArray(); }
    void DrawBeatArray() override { stage_.percussion.DrawBeatArray(); }
    void moveViewTo(int column, int pitch) override {
        if (column >= 0)
            stage_.area.HScroll1->setValue(column);
        if (pitch >= 0)
            stage_.area.VScroll1->setValue(pitch);
        if (onScrolled)
            std::exchange(onScrolled, {})();
    }

    std::function<void()> onScrolled; ///< runs once

private:
    scripted::TableauStage& stage_;
};

struct StepEntryTest : testing::Test, scripted::TableauStage, StepPen {
    StepEntryTest() {
        studio.desk = &scrolling;
        resize(640, 760);
        sounding.Device_Click();
        host.midi.log.clear();
        score.RowInstrument = {24, 1, 2, 3, 4, 5, 6, 7};
        setup.values.instrument = 24;
    }

    // StepPen
    bool isReady() const override { return isFree; }
    bool isStripShown() const override { return hasStrip; }
    SeenCells seen() const override {
        return {area.MusicBox->width() / 12, 1, area.MusicBox->height() / 12 - 1};
    }
    void drawNote(int line, int column, int last) override {
        EXPECT_GE(line, 0);
        EXPECT_GE(column, 0);
        mouse.MusicBox_MouseDown(1, 0, column * 12 + 6, line * 12 + 6);
        mouse.MusicBox_MouseMove(1, 0, last * 12 + 6, line * 12 + 6);
        mouse.MusicBox_MouseUp(1, 0, last * 12 + 6, line * 12 + 6);
    }
    void drawBeat(int line, int column) override {
        percussion.Beatbox_MouseDown(1, 0, column * 12 + 6, line * 12 + 6);
        percussion.Beatbox_MouseUp(1, 0, column * 12 + 6, line * 12 + 6);
    }

    [[nodiscard]] std::string notes(int row, int a, int b) const {
        return scripted::gridText(score.NoteArray, row, a, b);
    }
    [[nodiscard]] std::string instruments(int row, int a, int b) const {
        return scripted::gridText(score.InstrumentArray, row, a, b);
    }

    Score& score = studio.score;
    ScrollingDesk scrolling{*this};
    MusicMouse mouse{studio, area, music, poly, sounding, desk};
    StepEntry entry{studio, sounding, *this};
    bool isFree = true;
    bool hasStrip = true;
};

TEST_F(StepEntryTest, AKeyIsANoteOfItsLengthAtTheMarkerWhichMovesOn) {
    score.StartColumn = 4;
    entry.setLength(3);
    EXPECT_EQ(entry.write({keyOfPitch60}), StepResult::done);
    EXPECT_EQ(notes(0, 3, 8), ". 60 1060 1060 . .");
    EXPECT_EQ(instruments(0, 3, 8), "0 24 24 24 0 0");
    EXPECT_EQ(score.StartColumn, 7);
    entry.setLength(1);
    EXPECT_EQ(entry.write({keyOfPitch60 + 1}), StepResult::done);
    EXPECT_EQ(notes(0, 3, 8), ". 60 1060 1060 59 .");
    EXPECT_EQ(score.StartColumn, 8);
}

TEST_F(StepEntryTest, WritingMakesNoSoundAndLeavesTheDeviceOpen) {
    setup.values.options.rows[0].strummed = true;
    setup.values.options.rows[0].chord = true;
    setup.values.options.rows[2].chord = true;
    note(1, 0, 64, 1); // would sound with a press of the mouse
    entry.setLength(4);
    EXPECT_EQ(entry.write({60, 55}), StepResult::done);
    EXPECT_EQ(host.midi.log, std::vector<std::string>{});
    EXPECT_FALSE(sounding.isMuted);
    EXPECT_EQ(host.time.stamp(), "0.000") << "a strum would block the program";
}

TEST_F(StepEntryTest, AChordTakesTheNextFreeRowsWithTheInstrumentOfTheCurrentOne) {
    score.CurrentRow = 6;
    note(7, 1, 50, 1); // in the way of the second column
    setup.values.options.rows[0].hidden = true;
    setup.values.options.rows[1].chord = true;
    score.PolyArray.write(2 + 1, 0 + 1, 1);
    entry.setLength(2);
    EXPECT_EQ(entry.write({67, 64, 60}), StepResult::done);
    EXPECT_EQ(notes(6, 0, 2), "60 1060 .") << "the highest key";
    EXPECT_EQ(notes(3, 0, 2), "63 1063 .");
    EXPECT_EQ(notes(4, 0, 2), "67 1067 .");
    for (const int row : {0, 1, 2, 5})
        EXPECT_EQ(notes(row, 0, 2), ". . .") << row;
    EXPECT_EQ(instruments(3, 0, 1), "6 6");
    EXPECT_EQ(score.RowInstrument[3], 3) << "what the row gets by the mouse stays";
    EXPECT_TRUE(studio.view.RowOpen[3].isSet()) << "what is written is seen";
    EXPECT_EQ(score.CurrentRow, 6);
    EXPECT_EQ(sounding.SoundRow, 6);
}

TEST_F(StepEntryTest, KeysThatFindNoRowAreCounted) {
    for (int row = 1; row < 7; ++row)
        note(row, 0, 50, 1);
    EXPECT_EQ(entry.write({67, 64, 60, 55}), StepResult::incomplete);
    EXPECT_EQ(entry.unwritten(), 2);
    EXPECT_EQ(notes(0, 0, 0) + " " + notes(7, 0, 0), "60 63");
    EXPECT_EQ(score.StartColumn, 1);
    EXPECT_EQ(entry.write({67}), StepResult::done);
    EXPECT_EQ(entry.unwritten(), 0);
}

TEST_F(StepEntryTest, ADrumIsOneBeatOfOneColumnWhateverIsPlayed) {
    score.CurrentRow = 8;
    score.RowInstrument[8] = 131;
    entry.setLength(4);
    EXPECT_EQ(entry.write({60}), StepResult::noDrum);
    sounding.PercussionChoice = 131;
    hasStrip = false;
    EXPECT_EQ(entry.write({60}), StepResult::noStrip);
    EXPECT_EQ(score.StartColumn, 0);
    hasStrip = true;
    EXPECT_EQ(entry.write({60, 50, 40}), StepResult::done);
    EXPECT_EQ(notes(8, 0, 2), std::to_string(studio.view.TopPitch) + " . .");
    EXPECT_EQ(instruments(8, 0, 0), "131");
    EXPECT_EQ(score.StartColumn, 4);
    EXPECT_EQ(host.midi.log, std::vector<std::string>{});
}

TEST_F(StepEntryTest, TheViewFollowsTheMarkerAndTheKeys) {
    score.StartColumn = 500;
    entry.setLength(8);
    EXPECT_EQ(entry.write({127}), StepResult::done);
    EXPECT_EQ(notes(0, 500, 501), "0 1000");
    EXPECT_EQ(notes(0, 507, 508), "1000 .");
    EXPECT_LE(studio.view.FirstColumn, 500);
    EXPECT_GE(studio.view.FirstColumn + seen().columns, 508);
    EXPECT_LE(studio.view.TopPitch, 0) << "the line is in view";
    EXPECT_EQ(entry.write({0}), StepResult::done);
    EXPECT_EQ(notes(0, 508, 509), "127 1127");
    EXPECT_GE(studio.view.TopPitch + seen().lastLine, 127);
}

TEST_F(StepEntryTest, AViewThatShowsTheStepStays) {
    score.StartColumn = 10;
    entry.setLength(2);
    const int pitch = studio.view.TopPitch + 5;
    const View before = studio.view;
    EXPECT_EQ(entry.write({127 - pitch}), StepResult::done);
    EXPECT_EQ(studio.view.FirstColumn, before.FirstColumn);
    EXPECT_EQ(studio.view.TopPitch, before.TopPitch);
}

TEST_F(StepEntryTest, AStepInTheFirstCellOfTheViewLeavesTheViewWhereItIs) {
    score.StartColumn = 500;
    ASSERT_EQ(entry.write({60}), StepResult::done);
    const View before = studio.view;
    ASSERT_GT(before.FirstColumn, 0);
    score.StartColumn = before.FirstColumn;
    EXPECT_EQ(entry.write({127 - (before.TopPitch + seen().firstLine)}), StepResult::done);
    EXPECT_EQ(studio.view.FirstColumn, before.FirstColumn);
    EXPECT_EQ(studio.view.TopPitch, before.TopPitch);
}

TEST_F(StepEntryTest, AChordThatIsHigherThanTheViewIsWrittenWhole) {
    EXPECT_EQ(entry.write({127, 64, 0}), StepResult::done);
    EXPECT_EQ(notes(0, 0, 0) + " " + notes(1, 0, 0) + " " + notes(2, 0, 0), "0 63 127");
}

TEST_F(StepEntryTest, TheLastColumnOfTheGridIsTheEnd) {
    score.StartColumn = 998;
    entry.setLength(2);
    EXPECT_EQ(entry.write({60}), StepResult::done);
    EXPECT_EQ(notes(0, 997, 1000), ". 67 1067 .");
    EXPECT_EQ(score.StartColumn, 1000);
    EXPECT_EQ(entry.write({60}), StepResult::atEnd);
    EXPECT_EQ(entry.rest(), StepResult::atEnd);
    EXPECT_EQ(notes(0, 1000, 1000), ".");
    EXPECT_EQ(score.StartColumn, 1000);
    score.StartColumn = 999;
    EXPECT_EQ(entry.write({60}), StepResult::atEnd) << "there is room for half of it";
    EXPECT_EQ(notes(0, 998, 999), "67 1067");
}

TEST_F(StepEntryTest, ARestMovesOnAndErasesNothing) {
    note(0, 2, 60, 2);
    entry.setLength(4);
    EXPECT_EQ(entry.rest(), StepResult::done);
    EXPECT_EQ(score.StartColumn, 4);
    EXPECT_EQ(notes(0, 2, 3), "60 1060");
    EXPECT_EQ(entry.stepBack(), StepResult::done);
    EXPECT_EQ(score.StartColumn, 0);
    EXPECT_EQ(entry.stepBack(), StepResult::atStart);
}

TEST_F(StepEntryTest, NothingIsWrittenWhileAPressWouldNotDraw) {
    studio.run.IsPlaying = flagSet;
    EXPECT_EQ(entry.write({60}), StepResult::playing);
    EXPECT_EQ(entry.rest(), StepResult::playing);
    studio.run.IsPlaying = flagClear;
    studio.run.EditMode = editMode::select;
    EXPECT_EQ(entry.write({60}), StepResult::notDrawing);
    studio.run.EditMode = editMode::draw;
    isFree = false;
    EXPECT_EQ(entry.write({60}), StepResult::busy);
    isFree = true;
    resize(80, 600); // one column
    entry.setLength(4);
    EXPECT_EQ(entry.write({60}), StepResult::tooNarrow);
    EXPECT_EQ(notes(0, 0, 4), ". . . . .");
    EXPECT_EQ(score.StartColumn, 0);
}

TEST_F(StepEntryTest, AStepMayBeAsWideAsTheViewAndNoWider) {
    for (int width = 60; studio.view.VisibleColumns != 3 && width < 640; width += 4)
        resize(width, 600);
    ASSERT_EQ(studio.view.VisibleColumns, 3) << "the fourth is at the edge";
    entry.setLength(5);
    EXPECT_EQ(entry.write({60}), StepResult::tooNarrow);
    entry.setLength(4);
    EXPECT_EQ(entry.write({60}), StepResult::done);
    EXPECT_EQ(notes(0, 0, 4), "67 1067 1067 1067 .");
}

// Scrolling yields.
TEST_F(StepEntryTest, ASongThatStartsWhileTheViewScrollsIsLeftAlone) {
    score.StartColumn = 500;
    scrolling.onScrolled = [this] { studio.run.IsPlaying = flagSet; };
    EXPECT_EQ(entry.write({60}), StepResult::playing);
    studio.run.IsPlaying = flagClear;
    score.StartColumn = 100;
    scrolling.onScrolled = [this] { score.CurrentRow = 8; };
    EXPECT_NE(entry.write({60}), StepResult::done);
    score.CurrentRow = 0;
    EXPECT_EQ(notes(0, 100, 101) + notes(0, 500, 501), ". .. .");
}

TEST_F(StepEntryTest, AStepIsOneToEightColumnsLong) {
    for (const int refused : {0, 9, -3})
        entry.setLength(refused);
    EXPECT_EQ(entry.length(), 1);
    entry.setLength(8);
    EXPECT_EQ(entry.length(), 8);
}

} // namespace
} // namespace velorin
