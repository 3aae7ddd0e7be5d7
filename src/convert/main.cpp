// velorin-convert: scores to MIDI files, sound, pictures, and scores anew.
#include "convert/Conversion.h"
#include "convert/Options.h"
#include "host/SoundFonts.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>

namespace {

namespace fs = std::filesystem;
using namespace velorin::convert;

constexpr int someFailed = 1;
constexpr int badUsage = 2;

void say(const std::string& text) {
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

/// One line on a terminal that tells how far a file is.
class ProgressLine {
public:
    explicit ProgressLine(const std::string& name) : name_(name), shown_(isatty(STDERR_FILENO)) {}
    ~ProgressLine() {
        if (percent_ >= 0)
            std::fprintf(stderr, "\r\033[K");
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(double share) {
        const int percent = static_cast<int>(share * 100.0);
        if (!shown_ || percent == percent_)
            return;
        percent_ = percent;
        std::fprintf(stderr, "\r%s %d %%", name_.c_str(), percent);
    }

private:
    std::string name_;
    bool shown_;
    int percent_ = -1;
};

// Two scores of one name, from two folders, would take each other's place.
std::string convertOne(const Task& task, const Options& options, std::set<fs::path>& written) {
    std::error_code failed;
    const fs::path target = fs::weakly_canonical(task.target, failed);
    if (!written.insert(target).second)
        return task.score + " would replace the output of another score";
    ProgressLine line(task.score);
    return convert(task, options, [&line](double share) { line.show(share); });
}

int run(Options& options) {
    for (const Task& task : options.tasks) {
        std::error_code ignored; // a folder that is missing still is told of with the file
        if (!task.target.parent_path().empty() && options.makesFolder)
            fs::create_directories(task.target.parent_path(), ignored);
        if (task.kind == Kind::wav && options.soundFont.empty())
            options.soundFont = firstSoundFont();
    }
    std::set<fs::path> written;
    bool allWell = true;
    for (const Task& task : options.tasks) {
        const std::string problem = convertOne(task, options, written);
        if (problem.empty())
            continue;
        say(problem);
        allWell = false;
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
    return run(options);
}
