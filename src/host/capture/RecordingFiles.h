// Gives finished recordings their names, and completes those that a crash has left.
#pragma once

#include "host/capture/PartFile.h"
#include "host/media/WavHeader.h"

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace platform {
class Notices;
}

namespace velorin::host {

/// Where recordings are kept.
struct RecordingFolders {
    std::filesystem::path songs; ///< for hidden files and named ones
    /// The user's state folder, used if "Songs" cannot be written; may be empty.
    std::filesystem::path spare = {};
    platform::Notices* notices = nullptr;                  ///< null for a program without windows
    std::int64_t mostDataBytes = WavHeader::mostDataBytes; ///< in one recording
};

/// Creates "Songs" if it is missing.
void createSongsFolder(const RecordingFolders& folders);

/// Creates a hidden file in "Songs", or else in the spare folder. Not open if neither can be
/// written; `error` then says why "Songs" cannot.
[[nodiscard]] PartFile createPartFile(const RecordingFolders& folders, std::error_code& error);

/// Syncs a finished recording and gives it its name. It replaces a file of that name, which stays
/// as it is on failure; `part` then stays hidden. Also works to another disk, and if the hidden
/// file has lost its name.
[[nodiscard]] std::error_code saveRecording(PartFile& part, const std::filesystem::path& target);

/// Gives a recording a new name: "recording", date and time, in "Songs", or else in its own folder.
/// Returns the new path; no value if that failed and it stays hidden until the next start.
[[nodiscard]] std::optional<std::filesystem::path>
saveUnderNewName(PartFile& part, const RecordingFolders& folders, std::time_t moment);

/// Completes the recordings that a crash has left: writes the lengths into their headers and gives
/// them names in "Songs". Reports each. From any thread.
void finishAbandonedRecordings(const RecordingFolders& folders);

/// "2 min 3 s", "6 h 45 min", "0.7 s"; `seconds` >= 0.
[[nodiscard]] std::string lengthText(double seconds);

/// For messages: "in "Songs" as "a.wav"" for a file there, "as "/elsewhere/a.wav"" for any other.
[[nodiscard]] std::string placeText(const RecordingFolders& folders,
                                    const std::filesystem::path& file);

/// A path between quotation marks.
[[nodiscard]] std::string quoted(const std::filesystem::path& path);

/// Posts a notice, or logs the text if there are no notices.
void report(const RecordingFolders& folders, const std::string& text);

} // namespace velorin::host
