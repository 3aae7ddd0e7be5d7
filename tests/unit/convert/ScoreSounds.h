// Scores as text, and the sounds that are made from them.
#pragma once

#include "convert/Options.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::convert::test {

/// One note of a score.
struct Note {
    int row = 0;    ///< [0, 13)
    int column = 0; ///< [0, 1000)
    int pitch = 60; ///< index, from the top
    int length = 1; ///< columns
    int instrument = 0;
};

/// The text of a score of the first stage.
[[nodiscard]] std::string scoreOf(int tempo, const std::vector<Note>& notes);

/// A sound in steps of 16 bits, left and right in turn.
struct Sound {
    int rateHz = 0;
    std::vector<double> samples;

    [[nodiscard]] double seconds() const;

    /// The mean power from one second to another.
    [[nodiscard]] double power(double from, double to) const;
};

/// Reads a WAV file of 16 or 24 bits; a test failure if there is none.
[[nodiscard]] Sound readSound(const std::filesystem::path& file);

/// Makes a sound from a task; a test failure if that fails.
[[nodiscard]] Sound soundOf(const Task& task, const Options& options);

/// The options of a conversion, with the first SoundFont of the machine.
[[nodiscard]] Options usualOptions();

} // namespace velorin::convert::test
