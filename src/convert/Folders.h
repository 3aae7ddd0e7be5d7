// Replaces folders on the command line with the files in them.
#pragma once

#include "convert/Options.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::convert {

/// A file that is skipped because another one makes the same output.
struct SkippedFile {
    std::string source;
    std::string reason;
};

/// True for the ending sng, mid, midi or wav, in any case.
[[nodiscard]] bool isConvertible(const std::filesystem::path& file);

/// The convertible files in a folder and its subfolders, ordered by name; of files that differ only
/// in their ending, a score goes before a MIDI file, and a MIDI file before a WAV file. Hidden
/// files and folders are left out, and so is what cannot be read.
[[nodiscard]] std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder);

/// Replaces each folder with the files in it and its subfolders that can be converted, ordered by
/// name. Hidden files are ignored. Of files that differ only in their ending, a score goes before a
/// MIDI file, and a MIDI file before a WAV file.
[[nodiscard]] std::vector<Task> expandFolders(const std::vector<Task>& tasks,
                                              std::vector<SkippedFile>& skipped);

} // namespace velorin::convert
