// Converts one file.
#pragma once

#include "convert/Options.h"
#include "host/synth/Synth.h"
#include "platform/Result.h"

#include <functional>
#include <string>

namespace velorin {
struct Studio;
}

namespace velorin::convert {

/// How a conversion speaks to its caller. It calls these in its own thread; each may be empty.
struct ConversionCallbacks {
    std::function<void(double)> progress;  ///< gets the share done [0, 1] from time to time
    std::function<bool()> isStopRequested; ///< true makes it fail
    /// Gets a warning about a conversion that continues, or what a user should know about its
    /// result, as a sentence that begins with the file name.
    std::function<void(const std::string&)> warning;
    bool encodesAside = false; ///< a second thread encodes while sound is rendered
    /// Gets a member of a JSON object for the report, once the files are written.
    std::function<void(const std::string&)> details = {};
    /// Draws a picture as `velorinPngOf` in ScorePicture.h does. If it is empty, the module beside
    /// the program is loaded.
    std::function<void(Studio&, int scale, int thumbnailPx, std::string& png)> drawPicture = {};
    /// Gets the playing time in seconds before the sound or the MIDI file is made. What has none
    /// does not call it.
    std::function<void(double seconds)> length = {};
};

class OutputFile;

/// Renders the sound of a WAV or MP3 task into `whole`, which is new. The caller finishes the file.
/// The reason of a failure begins with the file name.
platform::Result<void> renderSound(OutputFile& whole, const Task& task, const Options& options,
                                   const ConversionCallbacks& callbacks);

/// The reason of a failure begins with the file name. A failure keeps an existing target.
platform::Result<void> convert(const Task& task, const Options& options,
                               const ConversionCallbacks& callbacks);

/// Refuses to replace a device or a folder with a file.
platform::Result<void> checkTarget(const std::filesystem::path& target);

} // namespace velorin::convert
