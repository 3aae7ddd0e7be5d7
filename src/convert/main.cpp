// velorin-convert: converts scores to MIDI files, sound, pictures, pages and new scores, MIDI files
// to scores, and MIDI and WAV files to sound.
#include "convert/Batch.h"
#include "convert/Folders.h"
#include "convert/KeptHistory.h"
#include "convert/Options.h"
#include "convert/OutputFile.h"
#include "host/files/UserFolders.h"
#include "host/process/StopRequest.h"
#include "host/synth/SoundFonts.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <thread>

namespace {

namespace fs = std::filesystem;
using namespace velorin::convert;

constexpr int someFailed = 1;
constexpr int badUsage = 2;

// Prints one line. Control characters in file names become question marks.
void say(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
    std::fprintf(stderr, "velorin-convert: %s\n", text.c_str());
}

fs::path firstSoundFont() {
    std::error_code failed;
    const fs::path program = fs::read_symlink("/proc/self/exe", failed).parent_path();
    const char* home = std::getenv("HOME");
    const auto fonts =
        velorin::host::findSoundFonts(velorin::host::soundFontFolders(program, home ? home : ""));
    return fonts.empty() ? fs::path() : fonts.front().path;
}

bool isRendered(const Task& task) {
    return (task.kind == Kind::wav || task.kind == Kind::mp3 || task.kind == Kind::html) &&
           sourceKindOf(task.source) != Kind::wav;
}

// Pictures are drawn one by one: the drawing module is loaded once.
int jobsFor(const Options& options) {
    const bool draws = std::any_of(options.tasks.begin(), options.tasks.end(),
                                   [](const Task& task) { return task.kind == Kind::png; });
    if (draws || options.tasks.size() <= 1)
        return 1;
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    return options.jobs > 0 ? options.jobs : cores;
}

fs::path historyFolder() {
    const auto state =
        velorin::host::stateFolder(std::getenv("XDG_STATE_HOME"), std::getenv("HOME"));
    return state.empty() ? state : state / "history";
}

/// Prints the list, or reads the entry into its task. Returns the exit status if there is no more
/// to do.
std::optional<int> useHistory(Options& options) {
    const KeptHistory history(historyFolder());
    if (history.damagedPieces() > 0)
        say(history.damageReport());
    if (!options.historyEntry) {
        std::fputs(history.list().c_str(), stdout);
        if (history.isEmpty())
            say("the history is empty");
        return EXIT_SUCCESS;
    }
    auto text = history.score(*options.historyEntry);
    if (!text) {
        say(text.reason());
        return someFailed;
    }
    options.tasks.front().text = std::move(*text);
    return std::nullopt;
}

int run(Options& options, const velorin::host::StopRequest& stopRequest) {
    if (options.usesHistory)
        if (const auto status = useHistory(options))
            return *status;
    std::vector<SkippedFile> skipped;
    options.tasks = expandFolders(options.tasks, skipped);
    if (options.soundFont.empty() &&
        std::any_of(options.tasks.begin(), options.tasks.end(), isRendered))
        options.soundFont = firstSoundFont();
    const auto tell = [](const ConversionResult& result) {
        if (result.outcome == Outcome::failed)
            say(result.reason);
    };
    std::vector<ConversionResult> results = convertAll(
        options, jobsFor(options), tell, [&stopRequest] { return stopRequest.hasArrived(); }, say);
    stopRequest.endProcessIfArrived();
    bool allWell = std::none_of(results.begin(), results.end(), [](const ConversionResult& result) {
        return result.outcome == Outcome::failed;
    });
    for (const SkippedFile& file : skipped)
        results.push_back({file.source, {}, Outcome::skipped, file.reason, 0.0});
    if (!options.report.empty()) {
        const auto written = writeOutput(options.report, reportOf(results));
        if (!written)
            say(options.report.string() + " " + written.reason());
        allWell = allWell && written;
    }
    return allWell ? EXIT_SUCCESS : someFailed;
}

} // namespace

int main(int count, char** arguments) {
    Options options = readOptions({arguments + 1, arguments + count});
    if (options.help) {
        std::fputs(helpText().c_str(), stdout);
        return EXIT_SUCCESS;
    }
    if (options.version) {
        std::puts("velorin-convert " VELORIN_VERSION);
        return EXIT_SUCCESS;
    }
    if (!options.problem.empty()) {
        say(options.problem + " (see --help)");
        return badUsage;
    }
    const velorin::host::StopRequest stopRequest; // before the first thread
    // If nobody reads the messages, the files are still converted.
    std::signal(SIGPIPE, SIG_IGN);
    return run(options, stopRequest);
}
