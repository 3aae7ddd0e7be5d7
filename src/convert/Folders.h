// Folders on the command line, as the files in them.
#pragma once

#include "convert/Options.h"

#include <string>
#include <vector>

namespace velorin::convert {

/// A file of a folder that is left out because another one makes the same output.
struct LeftOut {
    std::string source;
    std::string reason;
};

/// The tasks with each folder replaced by the files in it, and in its folders, that can become
/// what is wanted; in the order of their names. Hidden files are not looked at. Of files that
/// differ in their ending only, a score comes before a MIDI file, and that before a WAV file.
[[nodiscard]] std::vector<Task> withoutFolders(const std::vector<Task>& tasks,
                                               std::vector<LeftOut>& leftOut);

} // namespace velorin::convert
