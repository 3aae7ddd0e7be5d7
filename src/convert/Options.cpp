// Parses the command line.
#include "convert/Options.h"

#include "convert/Bitrates.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

constexpr int lowestRateHz = 8000;
constexpr int highestRateHz = 96000;
constexpr int minutesOfADay = 24 * 60;
constexpr int largestThumbnailPx = 1024;

struct KindName {
    const char* name;
    Kind kind;
};

constexpr std::array kindNames{KindName{"mid", Kind::mid}, KindName{"wav", Kind::wav},
                               KindName{"mp3", Kind::mp3}, KindName{"png", Kind::png},
                               KindName{"sng", Kind::sng}, KindName{"html", Kind::html}};

std::optional<Kind> kindNamed(const std::string& name) {
    for (const KindName& known : kindNames) {
        if (platform::lowerCase(name) == known.name)
            return known.kind;
    }
    return std::nullopt;
}

struct GivenOptions {
    std::vector<std::string> scores;
    std::optional<std::string> target; ///< -o
    std::optional<std::string> kind;   ///< --to
    std::optional<std::string> folder; ///< --out
    std::optional<std::string> rate;
    std::optional<std::string> soundFont;
    std::optional<std::string> bitrate;
    std::optional<std::string> quality;
    std::optional<std::string> maxMinutes;
    std::optional<std::string> jobs;
    std::optional<std::string> report;
    std::optional<std::string> historyEntry;
    std::optional<std::string> thumbnail;
};

bool beginsWithDigit(const std::string& text) {
    return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

// Where the value of an option is stored; null for an unknown option.
std::optional<std::string>* valueOf(GivenOptions& given, const std::string& option) {
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
        {"--most-minutes", &given.maxMinutes},
        {"--jobs", &given.jobs},
        {"--report", &given.report},
        {"--thumbnail", &given.thumbnail},
    };
    for (const Place& place : places) {
        if (option == place.option)
            return place.value;
    }
    return nullptr;
}

// What an option without a value sets; null for any other.
bool* flagOf(Options& options, const std::string& option) {
    if (option == "--dry")
        return &options.isDry;
    if (option == "--stems")
        return &options.makesStems;
    if (option == "--join")
        return &options.joins;
    return option == "--plain" ? &options.plainMidi : nullptr;
}

std::string sort(const std::vector<std::string>& arguments, Options& options, GivenOptions& given) {
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
        } else if (bool* const flag = flagOf(options, argument)) {
            *flag = true;
        } else if (name == "--history") {
            options.usesHistory = true;
            if (equals != argument.npos)
                given.historyEntry = argument.substr(equals + 1);
            else if (i + 1 < arguments.size() && beginsWithDigit(arguments[i + 1]))
                given.historyEntry = arguments[++i];
        } else if (std::optional<std::string>* place = valueOf(given, name)) {
            if (equals == argument.npos && i + 1 == arguments.size())
                return name + " needs a value";
            *place = equals == argument.npos ? arguments[++i] : argument.substr(equals + 1);
        } else {
            return "unknown option " + argument;
        }
    }
    return {};
}

// False if the text is not a whole number in [low, high].
bool readNumber(const std::optional<std::string>& text, int low, int high, int& number) {
    if (!text)
        return true;
    const char* end = text->data() + text->size();
    const auto read = std::from_chars(text->data(), end, number);
    return read.ec == std::errc() && read.ptr == end && number >= low && number <= high;
}

// True for a bitrate of any sample rate.
bool isBitrate(int number) {
    const auto isAt = [number](int rateHz) {
        return static_cast<bool>(checkBitrate(rateHz, number));
    };
    return isAt(lowestRateHz) || isAt(22050) || isAt(44100);
}

std::string readNumbers(const GivenOptions& given, Options& options) {
    if (!readNumber(given.rate, lowestRateHz, highestRateHz, options.rateHz))
        return "--rate takes a number from 8000 to 96000";
    int bitrate = 0;
    if (!readNumber(given.bitrate, 8, 320, bitrate) || (given.bitrate && !isBitrate(bitrate)))
        return "--bitrate takes a bitrate of MP3 files, such as 128 or 192";
    if (given.bitrate)
        options.bitrate = bitrate;
    if (!readNumber(given.quality, 0, 9, options.quality))
        return "--quality takes a number from 0 (best) to 9 (fastest)";
    if (!readNumber(given.maxMinutes, 1, minutesOfADay, options.maxMinutes))
        return "--most-minutes takes a number from 1 to 1440";
    if (!readNumber(given.thumbnail, 1, largestThumbnailPx, options.thumbnailPx))
        return "--thumbnail takes a number of pixels from 1 to 1024";
    if (!readNumber(given.jobs, 1, 1000, options.jobs))
        return "--jobs takes a number from 1";
    int entry = 0;
    if (!readNumber(given.historyEntry, 1, std::numeric_limits<int>::max(), entry))
        return "--history takes the number of an entry, from 1";
    if (given.historyEntry)
        options.historyEntry = entry;
    return {};
}

// An entry is the only input of `-o`, under a name that messages show.
std::string readHistory(GivenOptions& given, const Options& options) {
    if (!given.scores.empty())
        return "--history takes no other input";
    if (!options.historyEntry)
        return given.target || given.kind ? "--history needs the number of an entry to convert"
                                          : std::string();
    if (!given.target)
        return "--history with a number needs -o FILE";
    given.scores.push_back("entry " + std::to_string(*options.historyEntry) + " of the history");
    return {};
}

std::string readSingleOutput(const GivenOptions& given, Options& options) {
    if (given.kind || given.folder)
        return "-o names one file and cannot be used with --to or --out";
    if (given.scores.size() != 1 && !options.joins)
        return "-o takes one score; use --to for several, or --join";
    const fs::path target = *given.target;
    const std::string ending = target.extension().string();
    // Desktops name the file of a thumbnail as they like.
    const auto kind =
        given.thumbnail ? Kind::png : kindNamed(ending.empty() ? "" : ending.substr(1));
    if (!kind)
        return "the output's name must end in .mid, .wav, .mp3, .png, .html or .sng";
    std::error_code failed;
    if (fs::is_directory(given.scores.front(), failed))
        return "-o takes one score; use --to for a folder";
    options.tasks.push_back({given.scores.front(), target, *kind});
    options.tasks.back().followers.assign(given.scores.begin() + 1, given.scores.end());
    options.mayReplaceScore = true;
    return {};
}

std::string readBatch(const GivenOptions& given, Options& options) {
    const auto kind = kindNamed(*given.kind);
    if (!kind)
        return "--to takes mid, wav, mp3, png, html or sng";
    for (const std::string& score : given.scores) {
        std::error_code failed;
        if (fs::is_directory(score, failed)) {
            const bool isResumable = !options.makesStems; // no output has the task's own name
            const fs::path folder = given.folder ? *given.folder : score;
            options.tasks.push_back({score, folder, *kind, isResumable});
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

std::string checkFlags(const Options& options) {
    const auto allMake = [&options](auto... kinds) {
        return std::all_of(options.tasks.begin(), options.tasks.end(),
                           [=](const Task& task) { return ((task.kind == kinds) || ...); });
    };
    if (options.thumbnailPx > 0 && !allMake(Kind::png))
        return "--thumbnail makes pictures; use -o FILE or --to png";
    if (options.joins && options.makesStems)
        return "--join and --stems cannot be used together";
    if (options.joins && (!options.mayReplaceScore || !allMake(Kind::wav, Kind::mp3)))
        return "--join makes one sound; name it with -o FILE.wav or -o FILE.mp3";
    if (options.makesStems && !allMake(Kind::wav))
        return "--stems makes WAV files; use -o FILE.wav or --to wav";
    if (options.isDry && !allMake(Kind::wav, Kind::mp3, Kind::html))
        return "--dry applies to sound; use it with wav, mp3 or html";
    return {};
}

// --rate applies to rendered sound. A WAV file has its own rate, and a folder may have both.
std::string checkBitrates(const Options& options) {
    const auto isRendered = [](const Task& task) {
        std::error_code failed;
        return (task.kind == Kind::mp3 || task.kind == Kind::html) &&
               sourceKindOf(task.source) != Kind::wav && !fs::is_directory(task.source, failed);
    };
    if (!options.bitrate || std::none_of(options.tasks.begin(), options.tasks.end(), isRendered))
        return {};
    const auto checked = checkBitrate(options.rateHz, *options.bitrate);
    return checked ? std::string() : "an MP3 file " + checked.reason();
}

std::string checkPlain(const Options& options) {
    const auto isNoMidi = [](const Task& task) { return task.kind != Kind::mid; };
    if (options.plainMidi && std::any_of(options.tasks.begin(), options.tasks.end(), isNoMidi))
        return "--plain is for MIDI files, made with --to mid or -o FILE.mid";
    return {};
}

} // namespace

Options readOptions(const std::vector<std::string>& arguments) {
    Options options;
    GivenOptions given;
    options.problem = sort(arguments, options, given);
    if (options.help || options.version) {
        options.problem.clear();
        return options;
    }
    if (options.problem.empty())
        options.problem = readNumbers(given, options);
    if (!options.problem.empty())
        return options;
    options.soundFont = given.soundFont.value_or("");
    options.report = given.report.value_or("");
    options.makesFolder = given.folder.has_value();
    if (options.usesHistory)
        options.problem = readHistory(given, options);
    if (!options.problem.empty() || (options.usesHistory && !options.historyEntry))
        return options;
    if (given.scores.empty())
        options.problem = "no score is given";
    else if (given.target)
        options.problem = readSingleOutput(given, options);
    else if (given.kind)
        options.problem = readBatch(given, options);
    else
        options.problem = "no output is given; use -o FILE or --to KIND";
    if (options.problem.empty())
        options.problem = checkFlags(options);
    if (options.problem.empty())
        options.problem = checkBitrates(options);
    if (options.problem.empty())
        options.problem = checkPlain(options);
    return options;
}

std::string nameOf(Kind kind) {
    const auto* const known =
        std::find_if(kindNames.begin(), kindNames.end(),
                     [kind](const KindName& entry) { return entry.kind == kind; });
    return known->name;
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
        return target == Kind::wav || target == Kind::mp3 || target == Kind::sng;
    case Kind::wav:
        return target == Kind::mp3;
    default:
        return true;
    }
}

std::string helpText() {
    return "Usage: velorin-convert IN... (-o OUT | --to KIND [--out DIR])\n"
           "       velorin-convert --join IN... -o OUT\n"
           "       velorin-convert --history [N -o OUT]\n"
           "\n"
           "Converts scores (.sng) into MIDI files, sound, pictures, song pages or new scores,\n"
           "MIDI files (.mid) into scores or sound, and WAV files into MP3 files. A song page\n"
           "(.html) shows and plays a song in any browser, without a network. A MIDI file plays\n"
           "as the score does. A MIDI file that is too long for a score becomes several:\n"
           "song.sng, song-2.sng and so on. What a score cannot keep is reported.\n"
           "\n"
           "  -o OUT            write the only input to OUT, whose ending says the kind\n"
           "  --to KIND         write each input beside itself as mid, wav, mp3, png, html or\n"
           "                    sng; for a folder: all files in it that can be converted and\n"
           "                    are newer than their output\n"
           "  --out DIR         with --to: write into DIR, which is created if it is missing\n"
           "  --plain           with mid: the file that the program's Save command writes, a\n"
           "                    quarter longer, without chords and volumes, at most 10,000 bytes\n"
           "  --rate HZ         frames per second of rendered sound, 8000 to 96000 (44100)\n"
           "  --bitrate KBPS    of MP3 files and pages, 8 to 320 (192); at most 160 for rates\n"
           "                    up to 24000 Hz, and at most 64 for rates up to 12000 Hz\n"
           "  --quality N       of MP3 files and pages, from 0 (best) to 9 (fastest)\n"
           "  --dry             without reverberation and chorus\n"
           "  --stems           one WAV file for each row that sounds: song-ch1.wav and so on\n"
           "  --join            play all scores one after the other, into the one file of -o\n"
           "  --soundfont FILE  play with this SoundFont (.sf2, .sf3)\n"
           "  --most-minutes N  refuse what plays for longer, up to 1440 (60)\n"
           "  --thumbnail SIZE  draw the beginning of the song, scaled to fit into SIZE x SIZE\n"
           "                    pixels; OUT may have any name\n"
           "  --history         list what the program keeps of each change, the newest last\n"
           "  --history N       convert entry N of that list, with -o\n"
           "  --jobs N          convert this many files at a time (the number of cores)\n"
           "  --report FILE     write the result of each file to FILE, as JSON\n"
           "  --help            show this text\n"
           "  --version         show the version\n"
           "\n"
           "A file appears under its name only when it is complete. A file that fails is\n"
           "reported on standard error with one line, and the others are still converted.\n"
           "The exit status is 0 if all files were converted, 1 if a file failed or the\n"
           "history has no such entry, 2 if the command line is wrong.\n";
}

} // namespace velorin::convert
