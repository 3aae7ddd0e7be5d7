// Reads a startup id and quotes it.
#include "host/dbus/StartupId.h"

#include <charconv>

namespace velorin::host {

std::optional<std::uint32_t> clickTimeOf(std::string_view startupId) {
    constexpr std::string_view mark = "_TIME";
    const std::size_t at = startupId.rfind(mark);
    if (at == std::string_view::npos)
        return std::nullopt;
    const std::string_view digits = startupId.substr(at + mark.size());
    const char* const end = digits.data() + digits.size();
    std::uint32_t time = 0;
    const auto read = std::from_chars(digits.data(), end, time);
    if (read.ec != std::errc() || read.ptr != end)
        return std::nullopt;
    return time;
}

std::string startupEndMessage(std::string_view startupId) {
    std::string message = "remove: ID=\"";
    for (const char sign : startupId) {
        if (sign == '"' || sign == '\\')
            message += '\\';
        message += sign;
    }
    return message + '"';
}

} // namespace velorin::host
