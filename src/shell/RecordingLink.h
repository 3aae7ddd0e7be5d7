// What the main window asks of the Recording Toolbar while a score plays.
#pragma once

#include <string>

namespace velorin {

/// Implemented beside `Record`; every call loads that window if it is not loaded.
class RecordingLink {
public:
    virtual ~RecordingLink() = default;

    /// The bar as a share of its track, and a caption, if there is a new one.
    virtual void showProgress(double share, const std::string* caption) = 0;
    virtual void endProgress() = 0;   ///< the bar back to a width of 1, no caption
    virtual void Recordcontrol() = 0; ///< ends the recording that the song was played for
};

} // namespace velorin
