// Plays a file of any kind: with a length, a position, and the commands of a tape machine.
#pragma once

#include <cstdint>

namespace velorin::host {

enum class TransportMode { stopped, playing, paused };

/// Lengths and positions are in units of its own, `unitsPerSecond` to the second.
class Transport {
public:
    virtual ~Transport() = default;

    [[nodiscard]] virtual std::int64_t unitsPerSecond() const = 0;
    [[nodiscard]] virtual bool countsFrames() const = 0; ///< a unit is a frame of sound
    [[nodiscard]] virtual std::int64_t length() const = 0;
    [[nodiscard]] virtual std::int64_t position() = 0; ///< `length()` at the end
    [[nodiscard]] virtual TransportMode mode() = 0;

    /// Plays [from, to), at once. 0 <= from <= to <= length().
    virtual void play(std::int64_t from, std::int64_t to) = 0;
    virtual void pause() = 0;                     ///< no effect unless it plays
    virtual void resume() = 0;                    ///< no effect unless it is paused
    virtual void stop() = 0;                      ///< keeps the position
    virtual void seek(std::int64_t position) = 0; ///< also stops
};

} // namespace velorin::host
