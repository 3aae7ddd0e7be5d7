// Operations of the score: clearing, files, the end of the song.
#include "Operations.h"
#include "Runner.h"
#include "session/Session.h"

namespace transcript {

using namespace velorin;

Operations scoreOperations() {
    const auto score = [](Runner& runner) -> Score& { return runner.studio().score; };
    const auto commands = [](Runner& runner) -> ScoreCommands& {
        return runner.session().commands;
    };
    const auto files = [](Runner& runner) -> ScoreFiles& { return runner.session().files; };
    return {
        operation("Form1.ClearNoteArrays", score, &Score::ClearNoteArrays),
        operation("Form1.ClearPolies", score, &Score::ClearPolies),
        operation("Form1.Comm2_Click", commands, &ScoreCommands::Comm2_Click),
        operation("Form1.Command4_Click", commands, &ScoreCommands::Command4_Click),
        operation("Form1.CmdBeatactivate", commands, &ScoreCommands::CmdBeatactivate),
        operation("Form1.mNew_Click", commands, &ScoreCommands::mNew_Click),
        operation("Form1.Command33_Click", files, &ScoreFiles::Command33_Click),
        operation("Form1.Command34_Click", files, &ScoreFiles::Command34_Click),
        operation("Form1.mSaveAs_Click", files, &ScoreFiles::mSaveAs_Click),
        operation("Form1.OpenFile", files, &ScoreFiles::OpenFile),
        operation("Form1.OpenPoliFile", files, &ScoreFiles::OpenPoliFile),
        operation("Form1.SaveScoreFile", files, &ScoreFiles::SaveScoreFile),
        operation("Form1.ExportMidiFile", files, &ScoreFiles::ExportMidiFile),
    };
}

} // namespace transcript
