// From a hidden file to a recording under a name, and the recordings that a crash has left.
#pragma once

#include "host/mci/PartFile.h"
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
    std::filesystem::path songs; ///< where they grow and get their names
    /// Of the user alone, for when "Songs" cannot be written; may be empty.
    std::filesystem::path spare = {};
    platform::Notices* notices = nullptr;                  ///< null for a program without windows
    std::int64_t mostDataBytes = WavHeader::mostDataBytes; ///< in one recording
};

/// Makes "Songs" if it is missing.
void makeSongs(const RecordingFolders& folders);

/// A new hidden file in "Songs", which is made if it is missing, or else in the spare folder. Not
/// open if neither can be written; `error` says why not "Songs".
[[nodiscard]] PartFile makePart(const RecordingFolders& folders, std::error_code& error);

/// Gives a finished recording its name: synced, in place of a file of that name, which stays as it
/// is if this fails. Works to another disk, and for a file whose name somebody has removed. `part`
/// stays hidden on failure.
[[nodiscard]] std::error_code placeRecording(PartFile& part, const std::filesystem::path& target);

/// Gives it a name that nobody has: "recording", date and time, in "Songs", or else where it is.
/// Returns the new path; no value if it stays hidden until the next start.
[[nodiscard]] std::optional<std::filesystem::path>
keepRecording(PartFile& part, const RecordingFolders& folders, std::time_t moment);

/// "recording 2026-11-22 04-10-01.wav"; from a count of 2 on with the count in brackets behind it.
[[nodiscard]] std::string recordingName(std::time_t moment, int count);

/// Finishes the recordings that a crash has left: the lengths in their headers, and names in
/// "Songs". Reports each. From any thread.
void finishLeftRecordings(const RecordingFolders& folders);

/// "2 min 3 s", "6 h 45 min", "0.7 s"; `seconds` >= 0.
[[nodiscard]] std::string lengthText(double seconds);

/// "in "Songs" as "a.wav"" for a file there, "as "/elsewhere/a.wav"" for any other.
[[nodiscard]] std::string placeText(const RecordingFolders& folders,
                                    const std::filesystem::path& file);

/// A path between quotation marks.
[[nodiscard]] std::string quoted(const std::filesystem::path& path);

/// Posts a notice, or logs the text where nobody reads notices.
void tell(const RecordingFolders& folders, const std::string& text);

} // namespace velorin::host
