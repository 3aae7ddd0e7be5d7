// Makes the page of a song.
#pragma once

#include "convert/Conversion.h"

namespace velorin::convert {

/// Renders the sound into a temporary file beside the target, as an MP3 conversion does, and puts
/// it into the page. The task is a score. The reason of a failure begins with the file name.
platform::Result<void> makePage(const Task& task, const Options& options,
                                const ConversionCallbacks& callbacks);

} // namespace velorin::convert
