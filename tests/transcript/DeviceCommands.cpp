// Commands about devices: midi, devices, mci, reply, encoder.
#include "Commands.h"
#include "Session.h"

#include <array>
#include <regex>
#include <utility>

namespace transcript {

namespace {

Lines midi(Session& session, const Words& words) {
    expectWords(words, 0);
    return std::exchange(session.host.midi.log, {});
}

Lines devices(Session& session, const Words& words) {
    session.host.midi.setDevices(words);
    return {};
}

/// The number of a window means nothing outside its run. A small one came from the transcript.
std::string withoutHandle(const std::string& line) {
    static const std::regex handle(" parent [0-9]{6,} ");
    return std::regex_replace(line, handle, " parent H ");
}

Lines mci(Session& session, const Words& words) {
    expectWords(words, 0);
    Lines lines = std::exchange(session.host.mci.log, {});
    for (std::string& line : lines)
        line = withoutHandle(line);
    return lines;
}

Lines reply(Session& session, const Words& words) {
    expectWords(words, 3);
    const int code = numberBetween(words[1], 0, INT32_MAX);
    session.host.mci.reply(session.path(words[0]), static_cast<std::uint32_t>(code),
                           session.path(words[2]));
    return {};
}

bool isEncoderCall(const std::string& word) {
    return word == "init" || word == "chunk" || word == "flush" || word == "close";
}

Lines encoder(Session& session, const Words& words) {
    expectWords(words, 0, 3);
    scripted::ScriptedEncoder& library = session.host.encoder;
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
