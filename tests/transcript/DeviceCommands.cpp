// Commands about devices: midi, devices, mci, reply, encoder.
#include "Commands.h"
#include "Runner.h"

#include <array>
#include <regex>
#include <utility>

namespace transcript {

namespace {

Lines midi(Runner& runner, const Words& words) {
    expectWords(words, 0);
    return std::exchange(runner.host.midi.log, {});
}

Lines devices(Runner& runner, const Words& words) {
    runner.host.midi.setDevices(words);
    return {};
}

/// Window numbers differ from run to run, so they are not printed. A small number is from the
/// transcript.
std::string withoutHandle(const std::string& line) {
    static const std::regex handle(" parent [0-9]{6,} ");
    return std::regex_replace(line, handle, " parent H ");
}

Lines mci(Runner& runner, const Words& words) {
    expectWords(words, 0);
    Lines lines = std::exchange(runner.host.mci.log, {});
    for (std::string& line : lines)
        line = withoutHandle(line);
    return lines;
}

Lines reply(Runner& runner, const Words& words) {
    expectWords(words, 3);
    const int code = numberBetween(words[1], 0, INT32_MAX);
    runner.host.mci.reply(runner.path(words[0]), static_cast<std::uint32_t>(code),
                          runner.path(words[2]));
    return {};
}

bool isEncoderCall(const std::string& word) {
    return word == "init" || word == "chunk" || word == "flush" || word == "close";
}

Lines encoder(Runner& runner, const Words& words) {
    expectWords(words, 0, 3);
    scripted::ScriptedEncoder& library = runner.host.encoder;
    if (words.empty())
        return std::exchange(library.log, {});
    if (words[0] == "absent") {
        expectWords(words, 1);
        library.absent = true;
        return {};
    }
    if (words[0] == "fail") {
        expectWords(words, 3);
        if (!isEncoderCall(words[1]))
            throw CommandError("no such call: " + words[1]);
        library.failures[words[1]] = static_cast<std::uint32_t>(plainNumber(words[2]));
        return {};
    }
    expectWords(words, 2);
    library.samples = static_cast<std::uint32_t>(numberBetween(words[0], 0, INT32_MAX));
    library.outputSize = static_cast<std::uint32_t>(numberBetween(words[1], 0, INT32_MAX));
    library.absent = false;
    return {};
}

} // namespace

std::span<const Command> deviceCommands() {
    static constexpr std::array commands{
        Command{"midi", midi},   Command{"devices", devices}, Command{"mci", mci},
        Command{"reply", reply}, Command{"encoder", encoder},
    };
    return commands;
}

} // namespace transcript
