// What the buttons of the History window do.
#include "history/History.h"
#include "model/ScoreWriter.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageLoop.h"
#include "platform/Notices.h"
#include "platform/Text.h"
#include "session/Session.h"
#include "studio/SaveFailure.h"
#include "windows/frame/ToolWindows.h"
#include "windows/history/HistoryWindow.h"

#include <memory>

namespace velorin {

namespace {

const platform::FileDialogRequest scoreRequest{
    "Save as score", "score(*.sng)|*.sng", 1,
    platform::ofnOverwritePrompt | platform::ofnCreatePrompt | platform::ofnHideReadOnly};

constexpr char lostState[] = "This state cannot be read any more.";

} // namespace

void HistoryWindow::goBack() {
    const HistoryModel::Line* const line = model.find(states->shownId());
    if (line != nullptr && history_.goTo(line->state) == HistoryStep::lost)
        platform::notify(session_.studio.platform, lostState);
}

// The name of the score on the tableaux stays.
void HistoryWindow::saveAsScore() {
    platform::Platform& platform = session_.studio.platform;
    const HistoryModel::Line* const line = model.find(states->shownId());
    if (line == nullptr)
        return;
    const auto score = std::make_unique<Score>();
    if (!history_.read(line->state, *score))
        return platform::notify(platform, lostState);
    windows_.HideToolbars();
    const auto answer = platform.dialogs.GetSaveFileNameA(scoreRequest);
    windows_.ShowToolbars();
    if (!answer)
        return;
    std::string name = platform::trimBlanks(answer->name);
    if (!name.empty() && name.back() == '\0')
        name.pop_back();
    if (name.empty())
        return;
    name = platform::withEnding(name, ".sng");
    const auto error = platform.files.replace(name, scoreText(*score));
    if (error != platform::WriteError::none)
        platform::notify(platform, saveFailureText(name, error));
}

void HistoryWindow::clearHistory() {
    const bool isSure = session_.studio.platform.boxes.ask(
        {"Clear history",
         "All states are removed, those of earlier days too. They cannot be brought back.\r\n"
         "The score on the tableaux stays.",
         "Clear", "Keep"});
    if (isSure && !session_.studio.platform.loop.isEnding())
        history_.clear();
}

void HistoryWindow::openScore(const std::string& path) {
    history_.changeFinished(); // what is on the tableaux stays in the history
    if (!session_.files.openChosen(path))
        platform::notify(session_.studio.platform,
                         "The score is not there any more. Look for it in \"Songs\".");
}

} // namespace velorin
