// A device that plays a file.
#pragma once

#include "host/mci/MciDevice.h"
#include "host/mci/TimeFormat.h"
#include "host/mci/Transport.h"

#include <memory>
#include <string>
#include <vector>

namespace velorin::host {

/// play [from N] [to N], pause, resume, stop, seek to N|start|end, set time format F, status
/// length|position|mode|ready|time format|number of tracks|current track. Counts milliseconds until
/// a format is set.
class PlayerDevice final : public MciDevice {
public:
    explicit PlayerDevice(std::unique_ptr<Transport> transport)
        : transport_(std::move(transport)) {}

    std::uint32_t carryOut(const CommandText& command, std::string* reply) override;
    bool isRunning() override { return transport_->mode() == TransportMode::playing; }

private:
    using Words = std::vector<std::string>;

    std::uint32_t play(const Words& words);
    std::uint32_t seek(const Words& words);
    std::uint32_t set(const Words& words);
    std::uint32_t status(const Words& words, std::string* reply);
    [[nodiscard]] std::string count(std::int64_t units) const;

    std::unique_ptr<Transport> transport_;
    TimeFormat format_ = TimeFormat::milliseconds;
};

/// "stopped", "playing", "paused".
[[nodiscard]] std::string nameOf(TransportMode mode);

} // namespace velorin::host
