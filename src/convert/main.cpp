// velorin-convert: scores to MIDI files, sound, pictures, and scores anew; MIDI files and WAV files
// to sound.
#include "convert/Batch.h"
#include "convert/Folders.h"
#include "convert/Options.h"
#include "convert/WholeFile.h"
#include "host/BreakOff.h"
#include "host/SoundFonts.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace {

namespace fs = std::filesystem;
using namespace velorin::convert;

constexpr int someFailed = 1;
constexpr int badUsage = 2;

// One line, whatever the names of the files in it.
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
    return (task.kind == Kind::wav || task.kind == Kind::mp3) &&
           sourceKindOf(task.score) != Kind::wav;
}

// Pictures are drawn one by one: the module that draws them is loaded once.
int jobsFor(const Options& options) {
    const bool draws = std::any_of(options.tasks.begin(), options.tasks.end(),
                                   [](const Task& task) { return task.kind == Kind::png; });
    if (draws || options.tasks.size() <= 1)
        return 1;
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    return options.jobs > 0 ? options.jobs : cores;
}

int run(Options& options, const velorin::host::BreakOff& breakOff) {
    std::vector<LeftOut> leftOut;
    options.tasks = withoutFolders(options.tasks, leftOut);
    if (options.soundFont.empty() &&
        std::any_of(options.tasks.begin(), options.tasks.end(), isRendered))
        options.soundFont = firstSoundFont();
    const auto tell = [](const Result& result) {
        if (result.outcome == Outcome::failed)
            say(result.reason);
    };
    std::vector<Result> results = convertAll(
        options, jobsFor(options), tell, [&breakOff] { return breakOff.isWanted(); }, say);
    breakOff.endIfWanted();
    bool allWell = std::none_of(results.begin(), results.end(), [](const Result& result) {
        return result.outcome == Outcome::failed;
    });
    for (const LeftOut& file : leftOut)
        results.push_back({file.source, {}, Outcome::skipped, file.reason, 0.0});
    if (!options.report.empty()) {
        const std::string problem = writeWhole(options.report, reportOf(results));
        if (!problem.empty())
            say(options.report.string() + " " + problem);
        allWell = allWell && problem.empty();
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
    const velorin::host::BreakOff breakOff; // before the first thread
    // Nobody may be there to read what fails; the files are made all the same.
    std::signal(SIGPIPE, SIG_IGN);
    return run(options, breakOff);
}
