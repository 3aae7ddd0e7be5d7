// Reading the command line.
#include "convert/Options.h"

#include "platform/Text.h"

#include <array>
#include <charconv>
#include <optional>

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

constexpr int lowestRateHz = 8000;
constexpr int highestRateHz = 96000;

struct KindName {
    const char* name;
    Kind kind;
};

constexpr std::array kindNames{KindName{"mid", Kind::mid}, KindName{"wav", Kind::wav},
                               KindName{"png", Kind::png}, KindName{"sng", Kind::sng}};

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
};

// The place for an option's value; null for what is no such option.
std::optional<std::string>* placeOf(Given& given, const std::string& option) {
    if (option == "-o")
        return &given.target;
    if (option == "--to")
        return &given.kind;
    if (option == "--out")
        return &given.folder;
    if (option == "--rate")
        return &given.rate;
    if (option == "--soundfont")
        return &given.soundFont;
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

std::string takeRate(const std::optional<std::string>& text, Options& options) {
    if (!text)
        return {};
    const char* end = text->data() + text->size();
    const auto read = std::from_chars(text->data(), end, options.rateHz);
    if (read.ec != std::errc() || read.ptr != end || options.rateHz < lowestRateHz ||
        options.rateHz > highestRateHz)
        return "--rate takes a number from 8000 to 96000";
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
        return "the output's name must end in .mid, .wav, .png or .sng";
    options.tasks.push_back({given.scores.front(), target, *kind});
    options.mayReplaceScore = true;
    return {};
}

std::string takeSeveral(const Given& given, Options& options) {
    const auto kind = kindNamed(*given.kind);
    if (!kind)
        return "--to takes mid, wav, png or sng";
    for (const std::string& score : given.scores) {
        fs::path target = score;
        target.replace_extension(platform::lowerCase(*given.kind));
        if (given.folder)
            target = fs::path(*given.folder) / target.filename();
        options.tasks.push_back({score, target, *kind});
    }
    return {};
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
        options.problem = takeRate(given.rate, options);
    if (!options.problem.empty())
        return options;
    options.soundFont = given.soundFont.value_or("");
    options.makesFolder = given.folder.has_value();
    if (given.scores.empty())
        options.problem = "no score is given";
    else if (given.target)
        options.problem = takeSingle(given, options);
    else if (given.kind)
        options.problem = takeSeveral(given, options);
    else
        options.problem = "nothing says what to make; use -o FILE or --to KIND";
    return options;
}

std::string helpText() {
    return "Usage: velorin-convert IN... (-o OUT | --to KIND [--out DIR])\n"
           "\n"
           "Turns scores (.sng) into MIDI files, sound, pictures or scores anew.\n"
           "\n"
           "  -o OUT            write the one score to OUT; its ending tells the kind\n"
           "  --to KIND         write each score beside itself as mid, wav, png or sng\n"
           "  --out DIR         with --to: write into DIR, which is made if it is missing\n"
           "  --rate HZ         frames per second of a WAV file, 8000 to 96000 (44100)\n"
           "  --soundfont FILE  play with this SoundFont (.sf2, .sf3)\n"
           "  --help            show this text\n"
           "  --version         show the version\n"
           "\n"
           "A file appears under its name only when it is whole. What fails is told on\n"
           "standard error, a line for each file; the others go on. The exit status is 0 if\n"
           "all went well, 1 if a file failed, 2 if the command line cannot be followed.\n";
}

} // namespace velorin::convert
