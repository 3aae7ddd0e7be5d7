// Commands about time, the desktop and the run of the program: at, wait, start, cursor, second ...
#include "Commands.h"
#include "Runner.h"

#include <array>
#include <cmath>

namespace transcript {

namespace {

scripted::Nanoseconds duration(const std::string& word) {
    const double seconds = realNumber(word);
    if (seconds < 0 || seconds > 1e9)
        throw CommandError("number out of range: " + word);
    return std::llround(seconds * static_cast<double>(scripted::nanosecondsPerSecond));
}

Lines at(Runner& runner, const Words& words) {
    if (words.size() < 2)
        throw CommandError("too few words");
    runner.plan(duration(words[0]), Words(words.begin() + 1, words.end()));
    return {};
}

Lines wait(Runner& runner, const Words& words) {
    expectWords(words, 1);
    runner.host.time.pass(duration(words[0]));
    return {};
}

Lines start(Runner& runner, const Words& words) {
    expectWords(words, 0);
    runner.restart();
    return {};
}

Lines cursor(Runner& runner, const Words& words) {
    expectWords(words, 2);
    runner.host.desktop.cursor = {plainNumber(words[0]), plainNumber(words[1])};
    return {};
}

Lines second(Runner& runner, const Words& words) {
    expectWords(words, 1);
    runner.host.desktop.anotherCopy = numberBetween(words[0], 0, 1) == 1;
    return {};
}

Lines random(Runner& runner, const Words& words) {
    expectWords(words, 1);
    const double number = realNumber(words[0]);
    if (number < 0 || number >= 1)
        throw CommandError("number out of range: " + words[0]);
    runner.host.desktop.randoms.push_back(number);
    return {};
}

Lines setting(Runner& runner, const Words& words) {
    expectWords(words, 1, 2);
    constexpr const char* section = "Settings";
    if (words.size() == 1)
        return {runner.host.settings.find(section, words[0]).value_or("none")};
    runner.host.settings.SaveSetting(section, words[0], runner.path(words[1]));
    return {};
}

} // namespace

std::span<const Command> timeCommands() {
    static constexpr std::array commands{
        Command{"at", at},           Command{"wait", wait},     Command{"start", start},
        Command{"cursor", cursor},   Command{"second", second}, Command{"random", random},
        Command{"setting", setting},
    };
    return commands;
}

} // namespace transcript
