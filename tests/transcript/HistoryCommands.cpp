// Commands on the history: history, hint.
#include "Answers.h"
#include "Commands.h"
#include "Runner.h"

#include "history/Change.h"
#include "program/Program.h"

#include <array>

namespace transcript {

using namespace velorin;

namespace {

const char* nameOf(HistoryStep step) {
    switch (step) {
    case HistoryStep::done:
        return "done";
    case HistoryStep::atEnd:
        return "at end";
    case HistoryStep::locked:
        return "locked";
    case HistoryStep::lost:
        return "lost";
    }
    return "";
}

std::string lineOf(const History& history, const platform::HistoryEntry& entry) {
    std::string line = std::to_string(entry.id) + ' ' + entry.kind + ": " + entry.text;
    if (entry.kind == changeKind::saved)
        line += " as " + fileNameOf(entry.name);
    else if (entry.isSaved)
        line += ", saved";
    if (entry.id == history.current())
        line += ", now";
    if (history.isUndone(entry.id))
        line += ", undone";
    return line;
}

/// Without words it lists the entries of this run, the oldest first.
Lines history(Runner& runner, const Words& words) {
    History& history = runner.program().history;
    if (words.empty()) {
        Lines lines;
        for (const platform::HistoryEntry& entry : history.entries())
            lines.push_back(lineOf(history, entry));
        return lines;
    }
    if (words[0] == "clear") {
        expectWords(words, 1);
        history.clear();
        return {};
    }
    expectWords(words, 2);
    if (words[0] != "goto")
        throw CommandError("history, history clear or history goto ID");
    return {nameOf(history.goTo(plainNumber(words[1])))};
}

Lines hint(Runner& runner, const Words& words) {
    expectWords(words, 0);
    return {runner.program().shortHint.text()};
}

constexpr std::array commands{Command{"history", history}, Command{"hint", hint}};

} // namespace

std::span<const Command> historyCommands() {
    return commands;
}

} // namespace transcript
