// A score with the block edits on it, and a desk that logs what is asked of the windows.
#pragma once

#include "session/Session.h"
#include "support/GridText.h"
#include "support/ScriptedPlatform.h"

#include <string>
#include <utility>
#include <vector>

namespace velorin {

using Lines = std::vector<std::string>;

/// Each call to the main window is a line of `log`. A test sets the number boxes.
class LoggedDesk final : public NoDesk {
public:
    Lines log;
    std::string notes = "60";
    std::string repeat = "12";
    std::string beats = "12";
    std::string spaces = "1";
    Lines hints;

    void DrawNoteArray() override { log.emplace_back("DrawNoteArray"); }
    void DrawBeatArray() override { log.emplace_back("DrawBeatArray"); }
    void DrawPolyTableau() override { log.emplace_back("DrawPolyTableau"); }
    void focusMusicBox() override { log.emplace_back("focus MusicBox"); }
    void focusBeatbox() override { log.emplace_back("focus Beatbox"); }
    void showHint(const std::string& line) override { hints.push_back(line); }
    std::string Form2Text1() override { return spaces; }
    std::string text(MainText box) override {
        switch (box) {
        case MainText::Text3:
            return notes;
        case MainText::Text4:
            return repeat;
        case MainText::Text5:
            return beats;
        case MainText::Instxt:
            break;
        }
        return {};
    }
};

struct EditingStage {
    EditingStage() { studio.desk = &desk; }

    /// Writes a note of `length` columns.
    void note(int row, int column, int pitch, int length = 1, std::int16_t instrument = 0) {
        scripted::putNote(score, row, column, pitch, length, instrument);
    }

    void select(int first, int last) {
        score.SelectStart = static_cast<std::int16_t>(first);
        score.SelectEnd = static_cast<std::int16_t>(last);
    }

    void hide(int row) { studio.setup.values.options.rows[row].hidden = true; }
    void show(int row) { studio.setup.values.options.rows[row].hidden = false; }

    /// Cells of a row from column a to column b: "60 1060 . ." with '.' for an empty one.
    [[nodiscard]] std::string notes(int row, int a, int b) const {
        return scripted::gridText(score.NoteArray, row, a, b);
    }
    [[nodiscard]] std::string instruments(int row, int a, int b) const {
        return scripted::gridText(score.InstrumentArray, row, a, b);
    }

    /// The calls to the main window since the last call of this.
    Lines asked() { return std::exchange(desk.log, {}); }

    scripted::ScriptedPlatform host;
    LoggedDesk desk;
    Session session{host.platform};
    Studio& studio = session.studio;
    Score& score = studio.score;
    LoggedDesk& texts = desk;
    ScoreCommands& commands = session.commands;
    BlockEdits& edits = session.edits;
    Duplicate& duplicate = session.duplicate;
};

} // namespace velorin
