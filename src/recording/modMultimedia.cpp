// Composes command strings, sends them and reads the replies.
//
// Rule: some verbs have a capital ("Close", "Pause", "Stop", "Resume", "Alias"), others have not.
// Held by recording/command_strings.
#include "recording/modMultimedia.h"

#include "platform/Files.h"
#include "platform/Mci.h"
#include "platform/Platform.h"
#include "platform/SystemFiles.h"
#include "platform/Text.h"
#include "recording/Mp3Header.h"
#include "recording/RecordDesk.h"

#include <array>
#include <istream>
#include <limits>

namespace velorin {

namespace {

constexpr char success[] = "Success";
constexpr std::int32_t failed = -1;
constexpr std::int32_t childWindowStyle = 1073741824; ///< 40000000 hex
constexpr std::size_t replyLength = 128;
constexpr std::size_t profileLength = 254; ///< of a buffer of 255, a NUL at its end

std::optional<std::int32_t> toInt32(double number) {
    const double whole = platform::roundHalfEven(number);
    if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
          whole <= std::numeric_limits<std::int32_t>::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(whole);
}

} // namespace

std::string modMultimedia::mmOpen(std::int32_t parent, const std::string& alias,
                                  const std::string& path, const std::string& deviceType) {
    return send("open " + platform_.systemFiles.GetShortPathNameA(path) + " type " + deviceType +
                " Alias " + alias + " parent " + std::to_string(parent) + " Style " +
                std::to_string(childWindowStyle));
}

std::string modMultimedia::mmPlay(const std::string& alias, const std::string& from,
                                  const std::string& to) {
    const std::string first = platform::Val(from) == 0.0 ? "0" : from;
    const std::string last = platform::Val(to) == 0.0 ? std::to_string(mmGetLength(alias)) : to;
    return send("play " + alias + " from " + first + " to " + last);
}

std::string modMultimedia::mmClose(const std::string& alias) {
    return send("Close " + alias);
}

std::string modMultimedia::mmPause(const std::string& alias) {
    return send("Pause " + alias);
}

std::string modMultimedia::mmStop(const std::string& alias) {
    return send("Stop " + alias);
}

std::string modMultimedia::mmResume(const std::string& alias) {
    return send("Resume " + alias);
}

std::string modMultimedia::send(const std::string& command) {
    const std::uint32_t code = platform_.mci.mciSendStringA(command);
    return code == 0 ? success : platform_.mci.mciGetErrorStringA(code);
}

std::int32_t modMultimedia::mmGetLength(const std::string& alias) {
    setTimeFormat(alias, "frames");
    return status(alias, "length").value_or(failed);
}

// The time format is set back to frames even if the question failed.
std::int32_t modMultimedia::mmGetLengthMs(const std::string& alias) {
    setTimeFormat(alias, "ms");
    const std::optional<std::int32_t> length = status(alias, "length");
    setTimeFormat(alias, "frames");
    return length.value_or(failed);
}

std::int32_t modMultimedia::mmGetPosition(const std::string& alias) {
    return status(alias, "position").value_or(failed);
}

std::optional<std::int32_t> modMultimedia::mmGetFramesPerSecond(const std::string& alias) {
    const std::int32_t milliseconds = mmGetLengthMs(alias);
    const std::int32_t frames = mmGetLength(alias);
    if (milliseconds == failed || frames == failed)
        return failed;
    if (milliseconds == 0)
        return std::nullopt;
    return toInt32(frames / (milliseconds / 1000.0));
}

Flag modMultimedia::mmIsAtEnd(const std::string& alias, std::int32_t& length) {
    if (length == 0)
        length = mmGetLength(alias);
    const std::int32_t position = mmGetPosition(alias);
    if (length == failed || position == failed)
        return flagClear;
    return toFlag(position >= length);
}

void modMultimedia::setTimeFormat(const std::string& alias, const char* format) {
    platform_.mci.mciSendStringA("set " + alias + " time format " + format);
}

// Without an answer the blanks stay, which read as 0.
std::optional<std::int32_t> modMultimedia::status(const std::string& alias, const char* what) {
    std::string reply(replyLength, ' ');
    if (platform_.mci.mciSendStringA("status " + alias + " " + what, &reply) != 0)
        return std::nullopt;
    return toInt32(platform::Val(reply));
}

void modMultimedia::mmReadMp3Header(const std::string& path) {
    std::array<std::uint8_t, 4> bytes{};
    if (const auto file = platform_.files.openForInput(path))
        file->read(reinterpret_cast<char*>(bytes.data()), bytes.size());
    const Mp3Header header = readMp3Header(bytes);
    if (header.khz)
        desk_.setCaption(RecordCaption::lblKhz, *header.khz);
    desk_.setCaption(RecordCaption::lblmode, header.mode);
    desk_.setCaption(RecordCaption::lblbitrate, header.bitrate);
}

std::string modMultimedia::ReadMCIEntry(const std::string& key) {
    return platform_.systemFiles.GetPrivateProfileStringA("MCI", key, "None", systemIni())
        .substr(0, profileLength);
}

void modMultimedia::WriteMCIEntry(const std::string& key, const std::string& value) {
    // A failure is ignored: MP3 files play without the entry.
    (void)platform_.systemFiles.WritePrivateProfileStringA("MCI", key, value, systemIni());
}

std::string modMultimedia::systemIni() {
    return platform_.systemFiles.GetWindowsDirectoryA() + "\\system.ini";
}

} // namespace velorin
