// A song as one page for a browser: its picture, its sound, a player and the score.
#pragma once

#include <string>
#include <vector>

namespace velorin {
struct Score;
}

namespace velorin::convert {

/// What a page is made of, apart from the score. The page loads nothing: all of it is in the file.
struct SongPage {
    std::string title; ///< any bytes; also the name of the files to download, with their endings
    std::string scoreText; ///< the score file to download, byte for byte
    /// The start of each column in the sound, in seconds, rising; the entry after the last column
    /// is its end. More entries are ignored. Two at least; missing ones are as the last.
    std::vector<double> columnTimes;
};

/// The page in two pieces. The sound belongs between them, an MP3 file in base64.
struct SongPageParts {
    std::string beforeSound;
    std::string afterSound;
};

[[nodiscard]] SongPageParts makeSongPage(const SongPage& page, const Score& score);

/// The most by which a column's time in a page differs from the true one, in seconds.
constexpr double columnTimeTolerance = 0.0005;

/// The times of the columns as a JSON object: "columns", their number, which is one less than the
/// times; "step", the seconds of a column; and "shifts", the columns from which on the song is
/// later than (column + 1) * step, each with by how much, in microseconds. `columnTimes` has at
/// least two entries.
[[nodiscard]] std::string columnTimesJson(const std::vector<double>& columnTimes);

} // namespace velorin::convert
