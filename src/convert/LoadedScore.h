// A score file in a studio of its own, without windows.
#pragma once

#include "convert/OfflinePlatform.h"
#include "playback/NoDesk.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"

#include <string>

namespace velorin::convert {

struct LoadedScore {
    explicit LoadedScore(platform::MidiOut& midi) : host(midi) {}

    /// Reads a score of any stage, as the program's open command does. Returns why the file is
    /// none; empty if it went well.
    [[nodiscard]] std::string open(const std::string& name);

    OfflinePlatform host;
    PlainSetup setup;
    NoDesk desk;
    Studio studio{host.platform, setup};
};

} // namespace velorin::convert
