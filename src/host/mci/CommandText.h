// The grammar of the command strings: a verb, a device, and words with values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velorin::host {

/// "PLAY sound from 0": verb and device in lower case, the rest as written.
struct CommandText {
    std::string verb;
    std::string device;
    std::string rest;
};

[[nodiscard]] CommandText readCommand(std::string_view command);

/// The parts of an "open" command; missing words are empty.
struct OpenText {
    std::string file;  ///< as written, without surrounding quotes
    std::string type;  ///< lower case: "waveaudio", "sequencer", "mpegvideo"
    std::string alias; ///< lower case
    bool isNew = false;
};

/// Parses what follows the verb. The file's name may hold blanks:
///
///     new type waveaudio alias capture
///     waveaudio!FILE alias sound
///     FILE type MPEGVideo Alias audiomp3 parent 0 Style 1073741824
[[nodiscard]] OpenText readOpen(std::string_view text);

/// The words of a text, in lower case.
[[nodiscard]] std::vector<std::string> wordsOf(std::string_view text);

/// The value of a decimal whole number without a sign; no value for any other word.
[[nodiscard]] std::optional<std::int64_t> numberOf(std::string_view word);

} // namespace velorin::host
