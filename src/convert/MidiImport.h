// Makes score files of a MIDI file.
#pragma once

#include "convert/Conversion.h"
#include "convert/Options.h"
#include "importing/MidiImport.h"
#include "platform/Result.h"

#include <filesystem>
#include <vector>

namespace velorin::convert {

/// Reads a MIDI file and makes scores of it, in memory. Longer music than `maxMinutes` is refused.
/// The reason of a failure begins with the name of the file.
platform::Result<importing::Import> readImport(const std::string& source, int maxMinutes);

/// Writes the scores of the MIDI file `task.source`, all of them or none: the first to
/// `task.target`, the others to names like it, "song-2.sng". The callbacks get the sentences and
/// the account. The reason of a failure begins with the name of the file that it is about.
platform::Result<void> importMidiFile(const Task& task, const Options& options,
                                      const ConversionCallbacks& callbacks);

/// The targets of a task with this many scores. Numbers whose name is the target of another task
/// are left out.
[[nodiscard]] std::vector<std::filesystem::path> targetsOf(const Task& task, const Options& options,
                                                           std::size_t count);

} // namespace velorin::convert
