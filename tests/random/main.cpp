// velorin-random: sends random events to the real program and checks the score, the memory and the
// end.
#include "RandomUser.h"
#include "RealHost.h"
#include "support/ScriptedFiles.h"
#include "tutorial/Samples.h"
#include "windows/frame/Look.h"

#include <QApplication>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <vector>

#include <malloc.h>
#include <sys/resource.h>
#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

using namespace randomly;

/// One run of the program, from its start to its exit command.
constexpr long eventsOfARun = 2500;

/// The first runs fill permanent caches: fonts, pictures, tables of libraries.
constexpr std::size_t runsToSettle = 4;
constexpr double mostGrowthMb = 24.0;

double heapMb() {
#ifdef __SANITIZE_ADDRESS__
    return static_cast<double>(__sanitizer_get_current_allocated_bytes()) / 1e6;
#else
    return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd) / 1e6;
#endif
}

// Hides warnings about features that this platform does not have.
void dropPlatformNotes(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support"))
        std::fprintf(stderr, "%s\n", qPrintable(text));
    if (type == QtFatalMsg)
        std::abort();
}

/// Handlers are nested deeper than with a real user, and sanitizers make stack frames large.
void enlargeStack() {
    rlimit limit{};
    getrlimit(RLIMIT_STACK, &limit);
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 100UL << 20);
    setrlimit(RLIMIT_STACK, &limit);
}

struct Wanted {
    long events = 100'000;
    unsigned seed = static_cast<unsigned>(std::time(nullptr));
};

bool readArguments(int count, char** words, Wanted& wanted) {
    for (int i = 1; i + 1 < count; i += 2) {
        if (std::strcmp(words[i], "--events") == 0)
            wanted.events = std::atol(words[i + 1]);
        else if (std::strcmp(words[i], "--seed") == 0)
            wanted.seed = static_cast<unsigned>(std::strtoul(words[i + 1], nullptr, 10));
        else
            return false;
    }
    return count % 2 == 1 && wanted.events > 0;
}

/// Files for the first dialog.
void putSongs(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder / "Songs");
    for (const char* name : {"101.sng", "104.sng", "301.sng", "333.mid"}) {
        const velorin::Sample* sample = velorin::findSample(name);
        std::ofstream file(folder / "Songs" / name, std::ios::binary);
        for (const unsigned char byte : sample->bytes)
            file.put(static_cast<char>(byte));
    }
}

void report(const Tally& tally, std::size_t runs) {
    std::printf(
        "%ld events in %zu runs of the program: %ld presses, %ld moves, %ld releases, "
        "%ld keys, %ld turns of the wheel, %ld choices, %ld sizes\n"
        "%ld while a song played, %ld while it was recorded; handlers nested up to %d deep; "
        "%ld predictions were right, %ld of them changed cells; %ld gestures were lost\n",
        tally.events, runs, tally.presses, tally.moves, tally.releases, tally.keys, tally.turns,
        tally.choices, tally.sizes, tally.whilePlaying, tally.whileRecording, tally.deepest,
        tally.checks, tally.changes, tally.lost);
}

int session(const Wanted& wanted, const std::filesystem::path& folder) {
    Chance chance(wanted.seed);
    Tally tally;
    std::vector<double> heap;
    putSongs(folder);
    while (tally.events < wanted.events && tally.trouble.empty()) {
        {
            RealHost host(folder, chance);
            RandomUser user(host, chance, tally,
                            std::min(eventsOfARun, wanted.events - tally.events));
            host.run([&user] { user.begin(); });
        }
        heap.push_back(heapMb());
        std::printf("run %zu: %ld events, heap %.1f MB\n", heap.size(), tally.events, heap.back());
        std::fflush(stdout);
    }
    report(tally, heap.size());
    if (heap.size() > runsToSettle && heap.back() > heap[runsToSettle - 1] + mostGrowthMb)
        tally.trouble = "the heap has grown from run to run";
    // Windows that open meanwhile intercept a few gestures. If the tableau gets none, it is broken.
    if (tally.trouble.empty() && tally.lost > tally.changes)
        tally.trouble = "more gestures were lost on the tableau than took effect";
    std::printf("seed %u: %s\n", wanted.seed,
                tally.trouble.empty() ? "nothing wrong" : tally.trouble.c_str());
    std::fflush(stdout); // an error that a sanitizer finds at the end discards buffered output
    return tally.trouble.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    Wanted wanted;
    if (!readArguments(argc, argv, wanted)) {
        std::fputs("usage: velorin-random [--events N] [--seed N]\n", stderr);
        return 2;
    }
    enlargeStack();
    const scripted::TemporaryFolder folder;
    const std::string home = folder.path().string();
    std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_all);
    for (const char* name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        setenv(name, home.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    qInstallMessageHandler(dropPlatformNotes);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setQuitOnLastWindowClosed(false);
    velorin::applyLook(application);
    return session(wanted, folder.path());
}
