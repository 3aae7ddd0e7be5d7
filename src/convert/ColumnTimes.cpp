// Reads the jumping clock at the end of each wait of the song loop.
#include "convert/ColumnTimes.h"

#include "convert/LoadedScore.h"
#include "convert/PlayedMidi.h"

#include <algorithm>

namespace velorin::convert {

// The song loop waits before it plays a column, and once more after the last one. A wait may take
// several jumps; the last one counts. Without a tempo there are no waits.
std::vector<double> playColumns(LoadedScore& score) {
    std::vector<double> times;
    const auto column = [&score] {
        return static_cast<std::size_t>(std::max<int>(score.studio.run.PlayColumn, 0));
    };
    const auto note = [&](std::size_t index) {
        times.resize(std::max(times.size(), index + 1), times.empty() ? 0.0 : times.back());
        times[index] = static_cast<double>(score.host.clock.nowNs) / 1e9;
    };
    score.host.loop.onWaited = [&] { note(column()); };
    play(score);
    score.host.loop.onWaited = nullptr;
    note(column());
    return times;
}

} // namespace velorin::convert
