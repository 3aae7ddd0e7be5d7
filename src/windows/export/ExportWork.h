// What the threads of the Export window do.
#pragma once

#include "convert/PlaySetup.h"
#include "model/Score.h"
#include "windows/export/ExportKinds.h"
#include "windows/making/ConversionJobs.h"

#include <filesystem>
#include <memory>

namespace velorin {

class Session;

/// A copy of what is on the tableaux, with what it is played with. Threads only read it.
struct ExportedSong {
    Score score;
    convert::PlaySetup setup;
    int device = 0; ///< of the device list, 0 the first
};

/// Copies the song of the session as it is now.
[[nodiscard]] std::shared_ptr<const ExportedSong> songOf(Session& session);

/// Plays the song without sound and fills `measure`.
[[nodiscard]] ConversionJobs::Work measuringWork(std::shared_ptr<const ExportedSong> song,
                                                 std::shared_ptr<ExportMeasure> measure);

struct ExportOrder {
    std::size_t kind = 0;         ///< of `exportKinds`
    std::size_t quality = 0;      ///< of the kind
    std::filesystem::path target; ///< an existing file is replaced
};

/// Makes the file. The SoundFont is that of the session's device; for a MIDI port, the first one.
/// `programFolder` is the program's own, where SoundFonts may be.
[[nodiscard]] ConversionJobs::Work exportWork(std::shared_ptr<const ExportedSong> song,
                                              const ExportOrder& order,
                                              const std::filesystem::path& programFolder);

} // namespace velorin
