// An MP3 file as a target, and the encoder that it takes.
#pragma once

#include "convert/SoundTarget.h"
#include "host/media/Lame.h"

namespace velorin::convert {

/// The encoder beside the program, or else the system's; null if there is none.
[[nodiscard]] std::shared_ptr<const host::Lame> findLame();

/// Constant bitrate, with the frame at its head that tells players the length. Null if there is no
/// encoder, or it refuses, or the bitrate is none of the sample rate's, or the file cannot be made.
[[nodiscard]] std::unique_ptr<SoundTarget> makeMp3(const std::filesystem::path& path,
                                                   const SoundParameters& parameters,
                                                   std::shared_ptr<const host::Lame> lame,
                                                   std::string& reason);

} // namespace velorin::convert
