// Finds the frames of an MP3 file, and skips other data between them.
#pragma once

#include "host/media/SplicedFile.h"

#include <filesystem>
#include <vector>

namespace velorin::host {

/// The pieces of an MP3 file that hold frames, in order; the first one begins at the file's
/// beginning. Frames after a gap count only if they are of the same kind as those before it and
/// four follow one another without a gap: other data looks like a single frame now and then.
[[nodiscard]] std::vector<FilePiece> findMp3Pieces(const std::filesystem::path& path);

} // namespace velorin::host
