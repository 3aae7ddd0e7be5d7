// An MP3 file as a target, and its encoder.
#pragma once

#include "convert/SoundTarget.h"
#include "host/media/Lame.h"

namespace velorin::convert {

/// The encoder library beside the program, else that of the system; null if there is none.
[[nodiscard]] std::shared_ptr<const host::Lame> findLame();

/// Constant bitrate, with a first frame that gives players the length. Fails if there is no
/// encoder, if it refuses, if the sample rate does not allow the bitrate, or if the file cannot be
/// created.
MadeTarget makeMp3(const std::filesystem::path& path, const SoundParameters& parameters,
                   std::shared_ptr<const host::Lame> lame);

} // namespace velorin::convert
