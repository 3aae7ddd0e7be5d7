// The command-string interface to the devices that play and record files.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

class Mci {
public:
    virtual ~Mci() = default;

    /// Carries out one command string (UTF-8). Returns 0 or an error code; `reply`, if given, gets
    /// the text of a "status" query and is left alone by everything else.
    virtual std::uint32_t mciSendStringA(const std::string& command,
                                         std::string* reply = nullptr) = 0;

    /// The MIDI device, as `midiOutOpen` numbers them, on which a MID file plays that is opened
    /// from now on. Where nobody says, it is the mapper's.
    virtual void setSequencerDevice(int) {}

    /// A file that the user has chosen, as it is spelled (UTF-8): a name in a command that differs
    /// from it in case only means this file.
    virtual void noteSpelling(const std::string&) {}

    /// The text of an error code, UTF-8; empty for a code that is not known.
    [[nodiscard]] virtual std::string mciGetErrorStringA(std::uint32_t code) = 0;
};

} // namespace platform
