// An open device of the command-string layer.
#pragma once

#include "host/mci/CommandText.h"

#include <cstdint>
#include <string>

namespace velorin::host {

/// The destructor closes the device.
class MciDevice {
public:
    virtual ~MciDevice() = default;

    /// Carries out a command other than "open" and "close", and returns its code (see MciErrors.h).
    /// `reply` gets the text of a "status" query that succeeds; it may be null.
    virtual std::uint32_t carryOut(const CommandText& command, std::string* reply) = 0;

    /// Whether it plays or records, be it silence.
    [[nodiscard]] virtual bool isRunning() = 0;
};

/// Writes a reply where one is wanted.
inline std::uint32_t answer(std::string* reply, std::string text) {
    if (reply)
        *reply = std::move(text);
    return 0;
}

} // namespace velorin::host
