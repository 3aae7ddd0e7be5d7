// The command-string interface to the devices that play and record files.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

class Mci {
public:
    virtual ~Mci() = default;

    /// Executes one command string (UTF-8). Returns 0 or an error code. `reply`, if given, gets the
    /// text of a "status" query; other commands leave it alone.
    virtual std::uint32_t mciSendStringA(const std::string& command,
                                         std::string* reply = nullptr) = 0;

    /// Sets the MIDI device for MID files opened from now on, as `midiOutOpen` numbers them. The
    /// default is the mapper.
    virtual void setSequencerDevice(int) {}

    /// Notes the exact name (UTF-8) of a file that the user has chosen: a name in a command that
    /// differs from it in case only means this file.
    virtual void noteSpelling(const std::string&) {}

    /// The text of an error code, UTF-8; empty for an unknown code.
    [[nodiscard]] virtual std::string mciGetErrorStringA(std::uint32_t code) = 0;
};

} // namespace platform
