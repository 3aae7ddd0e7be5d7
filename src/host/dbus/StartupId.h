// The startup id of X11 desktops: what it says, and the message that a start is over.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velorin::host {

/// The X server's time, in milliseconds, of the click that an id is from: the number after "_TIME"
/// at its end. No value if it has none.
[[nodiscard]] std::optional<std::uint32_t> clickTimeOf(std::string_view startupId);

/// The message that ends the desktop's busy pointer.
[[nodiscard]] std::string startupEndMessage(std::string_view startupId);

} // namespace velorin::host
