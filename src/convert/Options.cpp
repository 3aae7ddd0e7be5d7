// Reading the command line.
#include "convert/Options.h"

#include "convert/Bitrates.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

constexpr int lowestRateHz = 8000;
constexpr int highestRateHz = 96000;
constexpr int minutesOfADay = 24 * 60;

struct KindName {
    const char* name;
    Kind kind;
};

constexpr std::array kindNames{KindName{"mid", Kind::mid}, KindName{"wav", Kind::wav},
                               KindName{"mp3", Kind::mp3}, KindName{"png", Kind::png},
                               KindName{"sng", Kind::sng}};

std::optional<Kind> kindNamed(const std::string& name) {
    for (const KindName& known : kindNames) {
        if (platform::lowerCase(name) == known.name)
            return known.kind;
    }
    return std::nullopt;
}

struct Given {
    std::vector<std::string> scores;
    std::optional<std::string> target; ///< -o
    std::optional<std::string> kind;   ///< --to
    std::optional<std::string> folder; ///< --out
    std::optional<std::string> rate;
    std::optional<std::string> soundFont;
    std::optional<std::string> bitrate;
    std::optional<std::string> quality;
    std::optional<std::string> mostMinutes;
    std::optional<std::string> jobs;
    std::optional<std::string> report;
};

// The place for an option's value; null for what is no such option.
std::optional<std::string>* placeOf(Given& given, const std::string& option) {
    struct Place {
        const char* option;
        std::optional<std::string>* value;
    };
    const Place places[] = {
        {"-o", &given.target},
        {"--to", &given.kind},
        {"--out", &given.folder},
        {"--rate", &given.rate},
        {"--soundfont", &given.soundFont},
        {"--bitrate", &given.bitrate},
        {"--quality", &given.quality},
        {"--most-minutes", &given.mostMinutes},
        {"--jobs", &given.jobs},
        {"--report", &given.report},
    };
    for (const Place& place : places) {
        if (option == place.option)
            return place.value;
    }
    return nullptr;
}

std::string sort(const std::vector<std::string>& arguments, Options& options, Given& given) {
    bool optionsOver = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (optionsOver || argument.size() < 2 || argument[0] != '-') {
            given.scores.push_back(argument);
            continue;
        }
        const std::size_t equals =
            argument.rfind("--", 0) == 0 ? argument.find('=') : argument.npos;
        const std::string name = argument.substr(0, equals);
        if (argument == "--") {
            optionsOver = true;
        } else if (argument == "--help" || argument == "-h") {
            options.help = true;
        } else if (argument == "--version") {
            options.version = true;
        } else if (std::optional<std::string>* place = placeOf(given, name)) {
            if (equals == argument.npos && i + 1 == arguments.size())
                return name + " needs a value";
            *place = equals == argument.npos ? arguments[++i] : argument.substr(equals + 1);
        } else {
            return "unknown option " + argument;
        }
    }
    return {};
}

// False for what is no whole number, or outside [low, high].
bool takeNumber(const std::optional<std::string>& text, int low, int high, int& number) {
    if (!text)
        return true;
    const char* end = text->data() + text->size();
    const auto read = std::from_chars(text->data(), end, number);
    return read.ec == std::errc() && read.ptr == end && number >= low && number <= high;
}

// The bitrates of all sample rates.
bool isBitrate(int number) {
    const auto isAt = [number](int rateHz) { return whyNotAt(rateHz, number).empty(); };
    return isAt(lowestRateHz) || isAt(22050) || isAt(44100);
}

std::string takeNumbers(const Given& given, Options& options) {
    if (!takeNumber(given.rate, lowestRateHz, highestRateHz, options.rateHz))
        return "--rate takes a number from 8000 to 96000";
    int bitrate = 0;
    if (!takeNumber(given.bitrate, 8, 320, bitrate) || (given.bitrate && !isBitrate(bitrate)))
        return "--bitrate takes one of the bitrates of MP3 files, as 128 or 192";
    if (given.bitrate)
        options.bitrate = bitrate;
    if (!takeNumber(given.quality, 0, 9, options.quality))
        return "--quality takes a number from 0 (best) to 9 (fastest)";
    if (!takeNumber(given.mostMinutes, 1, minutesOfADay, options.mostMinutes))
        return "--most-minutes takes a number from 1 to 1440";
    if (!takeNumber(given.jobs, 1, 1000, options.jobs))
        return "--jobs takes a number from 1";
    return {};
}

std::string takeSingle(const Given& given, Options& options) {
    if (given.kind || given.folder)
        return "-o names one file; it goes with neither --to nor --out";
    if (given.scores.size() != 1)
        return "-o takes one score; use --to for several";
    const fs::path target = *given.target;
    const std::string ending = target.extension().string();
    const auto kind = kindNamed(ending.empty() ? "" : ending.substr(1));
    if (!kind)
        return "the output's name must end in .mid, .wav, .mp3, .png or .sng";
    std::error_code failed;
    if (fs::is_directory(given.scores.front(), failed))
        return "-o takes one score; use --to for a folder";
    options.tasks.push_back({given.scores.front(), target, *kind});
    options.mayReplaceScore = true;
    return {};
}

std::string takeSeveral(const Given& given, Options& options) {
    const auto kind = kindNamed(*given.kind);
    if (!kind)
        return "--to takes mid, wav, mp3, png or sng";
    for (const std::string& score : given.scores) {
        std::error_code failed;
        if (fs::is_directory(score, failed)) {
            options.tasks.push_back(
                {score, given.folder ? fs::path(*given.folder) : fs::path(score), *kind, true});
            continue;
        }
        fs::path target = score;
        target.replace_extension(platform::lowerCase(*given.kind));
        if (given.folder)
            target = fs::path(*given.folder) / target.filename();
        options.tasks.push_back({score, target, *kind});
    }
    return {};
}

// The rate counts for what is rendered; a WAV file has one of its own, and a folder may hold both.
std::string checkBitrate(const Options& options) {
    const auto isRendered = [](const Task& task) {
        std::error_code failed;
        return task.kind == Kind::mp3 && sourceKindOf(task.score) != Kind::wav &&
               !fs::is_directory(task.score, failed);
    };
    if (!options.bitrate || std::none_of(options.tasks.begin(), options.tasks.end(), isRendered))
        return {};
    const std::string reason = whyNotAt(options.rateHz, *options.bitrate);
    return reason.empty() ? reason : "an MP3 file " + reason;
}

} // namespace

Options readOptions(const std::vector<std::string>& arguments) {
    Options options;
    Given given;
    options.problem = sort(arguments, options, given);
    if (options.help || options.version) {
        options.problem.clear();
        return options;
    }
    if (options.problem.empty())
        options.problem = takeNumbers(given, options);
    if (!options.problem.empty())
        return options;
    options.soundFont = given.soundFont.value_or("");
    options.report = given.report.value_or("");
    options.makesFolder = given.folder.has_value();
    if (given.scores.empty())
        options.problem = "no score is given";
    else if (given.target)
        options.problem = takeSingle(given, options);
    else if (given.kind)
        options.problem = takeSeveral(given, options);
    else
        options.problem = "nothing says what to make; use -o FILE or --to KIND";
    if (options.problem.empty())
        options.problem = checkBitrate(options);
    return options;
}

Kind sourceKindOf(const fs::path& source) {
    const std::string ending = platform::lowerCase(source.extension().string());
    if (ending == ".mid" || ending == ".midi")
        return Kind::mid;
    return ending == ".wav" ? Kind::wav : Kind::sng;
}

bool canMake(Kind source, Kind target) {
    switch (source) {
    case Kind::mid:
        return target == Kind::wav || target == Kind::mp3;
    case Kind::wav:
        return target == Kind::mp3;
    default:
        return true;
    }
}

std::string helpText() {
    return "Usage: velorin-convert IN... (-o OUT | --to KIND [--out DIR])\n"
           "\n"
           "Turns scores (.sng) into MIDI files, sound, pictures or scores anew, MIDI files\n"
           "(.mid) into sound, and WAV files into MP3 files.\n"
           "\n"
           "  -o OUT            write the one input to OUT; its ending tells the kind\n"
           "  --to KIND         write each input beside itself as mid, wav, mp3, png or sng;\n"
           "                    of an input that is a folder: all files in it that can be,\n"
           "                    except those whose output is newer than they are\n"
           "  --out DIR         with --to: write into DIR, which is made if it is missing\n"
           "  --rate HZ         frames per second of rendered sound, 8000 to 96000 (44100)\n"
           "  --bitrate KBPS    of MP3 files, 8 to 320 (192); at most 160 up to 24000 Hz,\n"
           "                    and at most 64 up to 12000 Hz\n"
           "  --quality N       of MP3 files, from 0 (best) to 9 (fastest)\n"
           "  --soundfont FILE  play with this SoundFont (.sf2, .sf3)\n"
           "  --most-minutes N  refuse scores and MIDI files that sound for longer, up to 1440\n"
           "                    (60)\n"
           "  --jobs N          convert so many files at a time (as many as there are cores)\n"
           "  --report FILE     write what became of each file to FILE, in JSON\n"
           "  --help            show this text\n"
           "  --version         show the version\n"
           "\n"
           "A file appears under its name only when it is whole. What fails is reported on\n"
           "standard error, a line for each file; the others go on. The exit status is 0 if\n"
           "all went well, 1 if a file failed, 2 if the command line cannot be followed.\n";
}

} // namespace velorin::convert
