// Stems: one sound file for each row of a score, to be mixed again by somebody else.
#pragma once

#include "convert/SoundRendering.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace velorin::convert {

/// Writes a WAV file with 24 bits for each row that sounds. All are as long as the mix of all rows,
/// and begin with it, so that their sum is the mix. `target` names the mix: song.wav becomes
/// song-ch1.wav to song-ch8.wav, and song-drums1.wav to song-drums5.wav for the percussion rows.
/// Either all files appear or none. The reason of a failure begins with a file name.
/// `isStopRequested` may be empty.
///
/// The sum is the WAV file of the mix, with reverberation and without: what differs is the rounding
/// to 24 bits, far below a step of 16 bits.
platform::Result<void> makeStems(const SoundRequest& request, const std::filesystem::path& target,
                                 const std::function<bool()>& isStopRequested);

/// The file of a row [0, 13).
[[nodiscard]] std::filesystem::path stemName(const std::filesystem::path& target, int row);

} // namespace velorin::convert
