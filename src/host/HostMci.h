// The layer of devices that play and record files, spoken to in command strings.
#pragma once

#include "platform/Mci.h"

namespace velorin::host {

/// Knows the grammar's verbs and no open device: what closes everything has done so, what names an
/// alias hears that it is not open.
class HostMci final : public platform::Mci {
public:
    std::uint32_t mciSendStringA(const std::string& command, std::string* reply) override;
    std::string mciGetErrorStringA(std::uint32_t code) override;
};

} // namespace velorin::host
