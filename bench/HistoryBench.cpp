// Measures the history: the time that keeping a change takes from the window's thread, the disk
// that typical states take, and opening ten thousand of them.
//
//     bench_history SONGS      the folder of the songs that come with the program
#include "convert/LoadedScore.h"
#include "history/History.h"
#include "host/state/HostHistoryStore.h"
#include "support/ScriptedMidi.h"
#include "support/VirtualTime.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>
#include <vector>

namespace {

using namespace velorin;
namespace fs = std::filesystem;

double nowUs() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::micro>(now).count();
}

/// A folder on the disk, not in memory: what is measured writes there.
class BenchFolder {
public:
    BenchFolder()
        : path_(fs::temp_directory_path() / ("velorin-history-" + std::to_string(getpid()))) {}
    ~BenchFolder() { fs::remove_all(path_); }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    [[nodiscard]] const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

/// A session with its history.
struct KeptSession {
    explicit KeptSession(const fs::path& folder) : store(folder) { history.begin(); }

    /// Changes one cell, another one each time.
    void change() {
        place = place * 1103515245U + 12345U;
        const int row = static_cast<int>(place >> 16U) % musicRows;
        const int column = static_cast<int>(place >> 20U) % 900;
        const auto pitch = static_cast<std::int16_t>(40 + (place >> 8U) % 50);
        loaded.studio.score.NoteArray.write(row, column, pitch);
        loaded.studio.score.InstrumentArray.write(row, column, 5);
    }

    std::uint32_t place = 1;
    scripted::VirtualTime time;
    scripted::ScriptedMidi midi{time};
    convert::LoadedScore loaded{midi};
    host::HostHistoryStore store;
    History history{loaded.studio, loaded.session.files, &store};
};

void fill(Score& score) {
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            const int pitch = 30 + (row * 5 + column / 4 * 7 + column / 64 * 11) % 70;
            score.NoteArray.write(
                row, column, static_cast<std::int16_t>(column % 4 == 0 ? pitch : 1000 + pitch));
            score.InstrumentArray.write(row, column, static_cast<std::int16_t>(row * 3));
        }
    }
}

void print(const char* name, std::vector<double> values) {
    std::sort(values.begin(), values.end());
    std::printf("%s %.3f %.3f %.3f\n", name, values[values.size() / 2], values.front(),
                values.back());
}

/// Changes of a user are further apart than the sync of one takes.
void measureKeeping() {
    constexpr int changes = 200;
    constexpr std::chrono::milliseconds apart{25};
    const BenchFolder folder;
    KeptSession session(folder.path());
    fill(session.loaded.studio.score);
    session.history.changeFinished();
    std::vector<double> kept;
    std::vector<double> unchanged;
    for (int i = 0; i < changes; ++i) {
        std::this_thread::sleep_for(apart);
        session.change();
        const double start = nowUs();
        session.history.changeFinished();
        const double middle = nowUs();
        session.history.changeFinished();
        unchanged.push_back(nowUs() - middle);
        kept.push_back(middle - start);
    }
    print("keep_us", kept);
    print("unchanged_us", unchanged);
}

/// The songs of the program, change after change.
void measureStates(const fs::path& songs) {
    constexpr int statesForSize = 1000;
    constexpr int statesForTime = 10'000;
    std::vector<fs::path> names;
    for (const auto& song : fs::directory_iterator(songs))
        names.push_back(song.path());
    std::sort(names.begin(), names.end());
    const BenchFolder folder;
    const auto keep = [&](int states) {
        KeptSession session(folder.path());
        const int each = states / static_cast<int>(names.size());
        for (const fs::path& song : names) {
            session.loaded.session.files.OpenPoliFile(song.string());
            for (int i = 0; i < each; ++i) {
                session.history.changeFinished();
                session.change();
            }
        }
        session.history.end();
        return session.store.bytesUsed();
    };
    std::printf("bytes %ju\n", static_cast<std::uintmax_t>(keep(statesForSize)));
    keep(statesForTime - statesForSize);
    std::vector<double> opening;
    for (int i = 0; i < 7; ++i) {
        host::HostHistoryStore store(folder.path());
        const double start = nowUs();
        const std::size_t count = store.entries().size();
        opening.push_back((nowUs() - start) / 1000);
        if (i == 0)
            std::printf("states %zu\n", count);
    }
    print("entries_ms", opening);
    host::HostHistoryStore store(folder.path());
    std::vector<double> reading;
    for (const platform::HistoryEntry& entry : store.entries()) {
        const double start = nowUs();
        (void)store.score(entry.state);
        reading.push_back(nowUs() - start);
    }
    print("score_us", reading);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2)
        return 2;
    measureKeeping();
    measureStates(arguments[1]);
    return 0;
}
