// What a score file does not hold and the sound depends on: the Setup Toolbar as the user has set
// it.
#pragma once

#include "model/RowOptions.h"

#include <array>
#include <cstdint>

namespace velorin {
class Session;
}

namespace velorin::convert {

/// Hidden rows, volumes, rows of chords, strummed rows, and the kind of chord.
struct PlaySetup {
    RowOptions rows;
    std::array<std::int16_t, 3> chord{3, 7, 12}; ///< semitones above the root

    void applyTo(Session& session) const;
};

/// What the session plays with now. With a Setup Toolbar, loads its window as playing does.
[[nodiscard]] PlaySetup setupOf(Session& session);

} // namespace velorin::convert
