// Command strings and the codes that answer them.
#include "host/HostMci.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velorin::host {

namespace {

constexpr std::uint32_t unrecognizedCommand = 261;
constexpr std::uint32_t deviceNotOpen = 263;
constexpr std::uint32_t cannotLoadDriver = 266;
constexpr std::uint32_t missingCommand = 267;
constexpr std::uint32_t missingDevice = 292;

struct ErrorText {
    std::uint32_t code;
    std::string_view text;
};

constexpr std::array errorTexts{
    ErrorText{0, "The specified command was carried out."},
    ErrorText{unrecognizedCommand, "The driver does not know the specified command."},
    ErrorText{deviceNotOpen, "The specified device is not open or is not known."},
    ErrorText{cannotLoadDriver, "There is no driver for the specified device."},
    ErrorText{missingCommand, "No command was specified."},
    ErrorText{missingDevice, "The specified command needs a device, file or alias."},
};

constexpr std::array<std::string_view, 11> verbs{
    "open", "close", "play", "record", "stop", "pause", "resume", "seek", "set", "status", "save"};

// Cuts the first word off, in lower case.
std::string takeWord(std::string& text) {
    text = platform::trimBlanks(text);
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string word = platform::lowerCase(text.substr(0, end));
    text.erase(0, end);
    return word;
}

} // namespace

std::uint32_t HostMci::mciSendStringA(const std::string& command, std::string*) {
    std::string rest = command;
    const std::string verb = takeWord(rest);
    const std::string device = takeWord(rest);
    if (verb.empty())
        return missingCommand;
    if (std::find(verbs.begin(), verbs.end(), verb) == verbs.end())
        return unrecognizedCommand;
    if (device.empty())
        return missingDevice;
    if (verb == "open")
        return cannotLoadDriver;
    const bool concernsAll = device == "all" && (verb == "close" || verb == "stop");
    return concernsAll ? 0 : deviceNotOpen;
}

std::string HostMci::mciGetErrorStringA(std::uint32_t code) {
    for (const ErrorText& error : errorTexts) {
        if (error.code == code)
            return std::string(error.text);
    }
    return {};
}

} // namespace velorin::host
