// A score with the block edits on it, and desks that write down what is asked of the windows.
#pragma once

#include "editing/BlockEdits.h"
#include "editing/Duplicate.h"
#include "editing/EditingDesk.h"
#include "score/PlainSetup.h"
#include "score/ScoreCommands.h"
#include "score/ScoreDesk.h"
#include "score/Studio.h"
#include "support/GridText.h"
#include "support/ScriptedPlatform.h"

#include <string>
#include <utility>
#include <vector>

namespace velorin {

using Lines = std::vector<std::string>;

class RecordingScoreDesk final : public ScoreDesk {
public:
    Lines log;

    void DrawNoteArray() override { log.emplace_back("DrawNoteArray"); }
    void DrawBeatArray() override { log.emplace_back("DrawBeatArray"); }
    void DrawPolyTableau() override { log.emplace_back("DrawPolyTableau"); }
    void focusMusicBox() override { log.emplace_back("focus MusicBox"); }
    void focusBeatbox() override { log.emplace_back("focus Beatbox"); }
    void setBeatboxHeight(int) override {}
    int HScroll1Min() override { return 20; }
    void setHScroll1(int) override {}
    void setMainCombo1(int) override {}
    void enableMainTrackSel(int, bool) override {}
    void setMainTrackSel(int, bool) override {}
    void ChangeInstrument(int, int) override {}
    void leaveTopMost() override {}
    void returnToTopMost() override {}
};

class EditingTexts final : public EditingDesk {
public:
    std::string notes = "60";
    std::string repeat = "12";
    std::string beats = "12";
    std::string spaces = "1";
    Lines hints;

    std::string Text3() override { return notes; }
    std::string Text4() override { return repeat; }
    std::string Text5() override { return beats; }
    std::string Form2Text1() override { return spaces; }
    void showHint(const std::string& line) override { hints.push_back(line); }
};

struct EditingStage {
    /// Writes a note of `length` columns.
    void note(int row, int column, int pitch, int length = 1, std::int16_t instrument = 0) {
        scripted::putNote(score, row, column, pitch, length, instrument);
    }

    void select(int first, int last) {
        score.SelectStart = static_cast<std::int16_t>(first);
        score.SelectEnd = static_cast<std::int16_t>(last);
    }

    void hide(int row) { setup.row[static_cast<std::size_t>(row)].hidden = true; }
    void show(int row) { setup.row[static_cast<std::size_t>(row)].hidden = false; }

    /// Cells of a row from column a to column b: "60 1060 . ." with '.' for an empty one.
    [[nodiscard]] std::string notes(int row, int a, int b) const {
        return scripted::gridText(score.NoteArray, row, a, b);
    }
    [[nodiscard]] std::string instruments(int row, int a, int b) const {
        return scripted::gridText(score.InstrumentArray, row, a, b);
    }

    /// What was asked of the main window since the last call.
    Lines asked() { return std::exchange(scoreDesk.log, {}); }

    scripted::ScriptedPlatform host;
    PlainSetup setup;
    Studio studio{host.platform, setup};
    Score& score = studio.score;
    RecordingScoreDesk scoreDesk;
    EditingTexts texts;
    ScoreCommands commands{studio, scoreDesk};
    BlockEdits edits{studio, scoreDesk, texts};
    Duplicate duplicate{studio, edits, commands, scoreDesk, texts};
};

} // namespace velorin
