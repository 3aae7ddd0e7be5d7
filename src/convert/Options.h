// The command line of the converter.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velorin::convert {

struct PlaySetup;

enum class Kind { mid, wav, mp3, png, sng, html };

/// What becomes of a file that has the name of an output.
enum class Existing {
    replaced,
    kept, ///< the conversion fails
};

struct Task {
    std::string source;           ///< a score, a MIDI file, a WAV file, or a folder of them
    std::filesystem::path target; ///< for a folder: where its files go
    Kind kind = Kind::wav;
    bool isResumable = false; ///< keep a target that is newer than its source
    std::string text = {};    ///< a score that is in no file; `source` is its name in messages
    std::vector<std::string> followers = {}; ///< scores that follow the source in the same sound
    /// What the scores are played and drawn with; null for that of a program that has just started.
    std::shared_ptr<const PlaySetup> setup = {};
    Existing existing = Existing::replaced; ///< not for stems and imports
};

struct Options {
    bool help = false;
    bool version = false;
    bool usesHistory = false;        ///< `--history`: lists it, or takes its entry
    std::optional<int> historyEntry; ///< from 1, the oldest; its task has no text yet
    int rateHz = 44100;
    int pictureScale = 1;            ///< pixels of a picture for each of the tableau, [1, 4]
    std::optional<int> bitrate;      ///< kilobits per second of MP3 files; else `defaultBitrateAt`
    int quality = -1;                ///< of MP3 files [0, 9]; -1 if not given
    int maxMinutes = 60;             ///< of rendered sound [1, 1440]; longer sound is refused
    int thumbnailPx = 0;             ///< pictures fit into a square of this [1, 1024]; 0: whole
    int jobs = 0;                    ///< files at a time; 0 means the number of cores
    std::filesystem::path report;    ///< file of the JSON report; empty for none
    std::filesystem::path soundFont; ///< empty for the first one on the machine
    std::vector<Task> tasks;
    bool isDry = false;           ///< `--dry`: rendered sound has no reverberation and chorus
    bool makesStems = false;      ///< `--stems`: a WAV file for each row instead of one for all
    bool joins = false;           ///< `--join`: the inputs become one sound
    bool makesFolder = false;     ///< `--out` was given
    bool plainMidi = false;       ///< `--plain`: the MIDI file that the Save command writes
    bool mayReplaceScore = false; ///< `-o` was given: a score may replace itself
    std::string problem;          ///< what is wrong with the command line; empty if nothing
};

/// `arguments` without the program's own name.
[[nodiscard]] Options readOptions(const std::vector<std::string>& arguments);

/// The text of `--help`.
[[nodiscard]] std::string helpText();

/// The name of a kind, which is also the ending of its files: "mid".
[[nodiscard]] std::string nameOf(Kind kind);

/// The kind of a source by its ending; a score by default.
[[nodiscard]] Kind sourceKindOf(const std::filesystem::path& source);

/// Scores can become everything, MIDI files sound and scores, and WAV files MP3 files.
[[nodiscard]] bool canMake(Kind source, Kind target);

} // namespace velorin::convert
