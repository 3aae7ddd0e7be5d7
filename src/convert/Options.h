// What the command line of the converter asks for.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velorin::convert {

enum class Kind { mid, wav, mp3, png, sng };

struct Task {
    std::string score; ///< the source: a score, a MIDI file or a WAV file; or a folder of them
    std::filesystem::path target; ///< of a folder: where its files go
    Kind kind = Kind::wav;
    bool isResumable = false; ///< a target that is newer than its source stays
};

struct Options {
    bool help = false;
    bool version = false;
    int rateHz = 44100;
    std::optional<int> bitrate;      ///< kilobits per second of MP3 files; none: `usualBitrateAt`
    int quality = -1;                ///< of an MP3 file [0, 9]; -1: not given
    int mostMinutes = 60;            ///< of rendered sound [1, 1440]; what is longer is refused
    int jobs = 0;                    ///< files at a time; 0: as many as there are cores
    std::filesystem::path report;    ///< where the JSON report goes; empty: none
    std::filesystem::path soundFont; ///< empty: the first one that the machine has
    std::vector<Task> tasks;
    bool makesFolder = false;     ///< `--out` was given
    bool mayReplaceScore = false; ///< `-o` was given: a score may be rewritten in its own place
    std::string problem;          ///< why the command line cannot be followed; empty if it can
};

/// `arguments` without the program's own name.
[[nodiscard]] Options readOptions(const std::vector<std::string>& arguments);

/// The text of `--help`.
[[nodiscard]] std::string helpText();

/// What a source is, by the ending of its name; a score if the ending tells nothing else.
[[nodiscard]] Kind sourceKindOf(const std::filesystem::path& source);

/// Scores become everything, MIDI files sound, WAV files MP3 files.
[[nodiscard]] bool canMake(Kind source, Kind target);

} // namespace velorin::convert
