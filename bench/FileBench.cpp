// Measures opening and saving a score of thirteen full rows, against plain reading and writing of
// its bytes.
#include "convert/LoadedScore.h"
#include "studio/ScoreFiles.h"
#include "support/ScriptedMidi.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using namespace velorin;

/// In memory if possible: a save waits for the disk, and the speed of the disk is not measured
/// here.
std::filesystem::path benchFolder() {
    std::error_code error;
    const std::filesystem::path memory = "/dev/shm";
    return (std::filesystem::is_directory(memory, error) ? memory
                                                         : std::filesystem::temp_directory_path()) /
           "velorin-file-bench";
}

/// A folder with the score.
class FullScore {
public:
    FullScore() {
        std::filesystem::create_directories(folder_);
        for (int row = 0; row < scoreRows; ++row) {
            for (int column = 0; column < scoreColumns; ++column) {
                const int pitch = 55 + (row * 5 + column / 4) % 50;
                loaded.studio.score.NoteArray.write(
                    row, column, static_cast<std::int16_t>(column % 4 == 0 ? pitch : 1000 + pitch));
                loaded.studio.score.InstrumentArray.write(row, column, 100);
            }
        }
        files.SaveScoreFile(name());
    }
    ~FullScore() { std::filesystem::remove_all(folder_); }

    [[nodiscard]] std::string name() const { return folder_ + "/full.sng"; }

private:
    std::string folder_ = benchFolder();

public:
    scripted::VirtualTime time;
    scripted::ScriptedMidi midi{time};
    convert::LoadedScore loaded{midi};
    ScoreFiles& files = loaded.session.files;
};

void openScore(benchmark::State& state) {
    FullScore full;
    for (auto _ : state)
        full.files.OpenPoliFile(full.name());
}

void saveScore(benchmark::State& state) {
    FullScore full;
    for (auto _ : state)
        full.files.SaveScoreFile(full.name());
}

void readBytes(benchmark::State& state) {
    FullScore full;
    for (auto _ : state) {
        std::ostringstream content;
        content << std::ifstream(full.name()).rdbuf();
        benchmark::DoNotOptimize(content.str());
    }
}

void writeBytes(benchmark::State& state) {
    FullScore full;
    std::ostringstream content;
    content << std::ifstream(full.name()).rdbuf();
    for (auto _ : state)
        std::ofstream(full.name() + ".bytes") << content.str() << std::flush;
}

BENCHMARK(openScore)->Unit(benchmark::kMicrosecond);
BENCHMARK(saveScore)->Unit(benchmark::kMicrosecond);
BENCHMARK(readBytes)->Unit(benchmark::kMicrosecond);
BENCHMARK(writeBytes)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
