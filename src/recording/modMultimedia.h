// The command strings of the MP3 device, the reader of an MP3 file's header, and the "MCI" entries
// of the system's INI file.
#pragma once

#include "studio/View.h"

#include <cstdint>
#include <optional>
#include <string>

namespace platform {
struct Platform;
}

namespace velorin {

class RecordDesk;

/// Each procedure sends its command strings and returns the result: "Success" or the device's error
/// text, or a number, which is -1 after a failure.
class modMultimedia {
public:
    modMultimedia(platform::Platform& platform, RecordDesk& desk)
        : platform_(platform), desk_(desk) {}

    /// `parent` is the window in which a picture would show.
    std::string mmOpen(std::int32_t parent, const std::string& alias, const std::string& path,
                       const std::string& deviceType);
    /// `from` and `to` are frames; 0 stands for the beginning and for the end.
    std::string mmPlay(const std::string& alias, const std::string& from, const std::string& to);
    std::string mmClose(const std::string& alias);
    std::string mmPause(const std::string& alias);
    std::string mmStop(const std::string& alias);
    std::string mmResume(const std::string& alias);

    std::int32_t mmGetLength(const std::string& alias);   ///< frames
    std::int32_t mmGetLengthMs(const std::string& alias); ///< milliseconds
    std::int32_t mmGetPosition(const std::string& alias); ///< in the current time format
    /// No value for a file of 0 milliseconds; -1 after a failure.
    std::optional<std::int32_t> mmGetFramesPerSecond(const std::string& alias);
    /// True if the device is at its end. A `length` of 0 is first replaced by the device's length.
    ///
    /// Rule: a device at 0 of 0 is at its end. Held by recording/an_mp3_of_no_length.
    [[nodiscard]] Flag mmIsAtEnd(const std::string& alias, std::int32_t& length);

    /// Shows the header in the first four bytes of the file. A missing file counts as zeros.
    ///
    /// Rule: a header with the reserved rate leaves the label of the rate as it was. Held by
    /// recording/command_strings.
    void mmReadMp3Header(const std::string& path);

    std::string ReadMCIEntry(const std::string& key); ///< "None" if it is absent
    void WriteMCIEntry(const std::string& key, const std::string& value);

private:
    std::string send(const std::string& command);
    std::optional<std::int32_t> status(const std::string& alias, const char* what);
    void setTimeFormat(const std::string& alias, const char* format);
    [[nodiscard]] std::string systemIni();

    platform::Platform& platform_;
    RecordDesk& desk_;
};

} // namespace velorin
