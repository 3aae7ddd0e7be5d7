// An open device that executes command strings.
#pragma once

#include "host/mci/CommandText.h"

#include <cstdint>
#include <string>

namespace velorin::host {

/// The destructor closes the device.
class MciDevice {
public:
    virtual ~MciDevice() = default;

    /// Executes a command other than "open" and "close". Returns its code (see MciErrors.h).
    /// `reply` gets the text of a successful "status" query; it may be null.
    [[nodiscard]] virtual std::uint32_t carryOut(const CommandText& command,
                                                 std::string* reply) = 0;

    /// True if it plays or records, even silence.
    [[nodiscard]] virtual bool isRunning() = 0;
};

/// Writes the reply if the caller wants one. Returns success.
inline std::uint32_t answer(std::string* reply, std::string text) {
    if (reply)
        *reply = std::move(text);
    return 0;
}

} // namespace velorin::host
