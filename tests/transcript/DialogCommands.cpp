// Commands that answer dialogs, menus and boxes, and print which were shown.
#include "Answers.h"
#include "Commands.h"
#include "Runner.h"

#include <array>
#include <optional>
#include <utility>

namespace transcript {

namespace {

/// A log as answer lines; its entries may have line breaks.
Lines emptied(std::vector<std::string>& log) {
    Lines lines;
    for (const std::string& entry : std::exchange(log, {})) {
        const Lines parts = linesOf(entry);
        lines.insert(lines.end(), parts.begin(), parts.end());
    }
    return lines;
}

Lines answerDialog(Runner& runner, const Words& words) {
    expectWords(words, 1, 2);
    if (words[0] == "cancel" && words.size() == 1) {
        runner.host.dialogs.answers.push_back(std::nullopt);
        return {};
    }
    platform::FileDialogAnswer answer{runner.path(words[0]), 1};
    if (words.size() == 2)
        answer.filterIndex = plainNumber(words[1]);
    runner.host.dialogs.answers.push_back(answer);
    return {};
}

Lines dialogs(Runner& runner, const Words& words) {
    expectWords(words, 0);
    return emptied(runner.host.dialogs.log);
}

Lines choose(Runner& runner, const Words& words) {
    expectWords(words, 1);
    runner.host.menus.choices.push_back(words[0]);
    return {};
}

Lines menus(Runner& runner, const Words& words) {
    expectWords(words, 0);
    return emptied(runner.host.menus.log);
}

Lines boxes(Runner& runner, const Words& words) {
    expectWords(words, 0);
    return emptied(runner.host.boxes.log);
}

Lines programs(Runner& runner, const Words& words) {
    expectWords(words, 0);
    return std::exchange(runner.host.desktop.programs, {});
}

/// Each notice on one line.
Lines notices(Runner& runner, const Words& words) {
    expectWords(words, 0);
    Lines lines;
    while (const auto notice = runner.host.notices.take()) {
        const Lines parts = linesOf(notice->text);
        std::string line = parts.front();
        for (std::size_t i = 1; i < parts.size(); ++i)
            line += ' ' + parts[i];
        lines.push_back(line);
    }
    return lines;
}

} // namespace

std::span<const Command> dialogCommands() {
    static constexpr std::array commands{
        Command{"answer", answerDialog}, Command{"dialogs", dialogs}, Command{"choose", choose},
        Command{"menus", menus},         Command{"boxes", boxes},     Command{"programs", programs},
        Command{"notices", notices},
    };
    return commands;
}

} // namespace transcript
