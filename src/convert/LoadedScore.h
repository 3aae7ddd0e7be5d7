// A score file in a session of its own, without windows.
#pragma once

#include "convert/OfflinePlatform.h"
#include "convert/PlaySetup.h"
#include "platform/Result.h"
#include "session/Session.h"

#include <string>

namespace velorin::convert {

struct LoadedScore {
    explicit LoadedScore(platform::MidiOut& midi) : host(midi) {}

    /// Reads a score of any stage, as the program's open command does. Fails if the file is none.
    /// If `text` is not empty, it is the score, and there is no such file.
    /// With `setup` it then plays with that one.
    platform::Result<void> open(const std::string& name, const std::string& text = {},
                                const PlaySetup* setup = nullptr);

    OfflinePlatform host;
    Session session{host.platform};
    Studio& studio = session.studio;
};

} // namespace velorin::convert
