// Sounds the keys of a MIDI keyboard.
#pragma once

#include <array>
#include <cstdint>

namespace velorin {

class NoteSounding;
struct Studio;

/// Keys are MIDI note numbers [0, 127]; others are ignored. User-interface thread only.
class MidiKeys {
public:
    MidiKeys(Studio& studio, NoteSounding& sounding);

    /// Sounds the key on the current row, with the row's instrument and volume. While a song plays
    /// the row keeps the program that the song has set, since the song does not set it again. A key
    /// that is down already sounds again.
    void press(int key);
    /// Ends the key on the row where it was pressed. A key that is not down does nothing.
    void release(int key);
    void releaseAll();

private:
    static constexpr int keys = 128;
    static constexpr std::int8_t isUp = -1;

    Studio& studio_;
    NoteSounding& sounding_;
    std::array<std::int8_t, keys> rows_{}; ///< the row that each key sounds on, or `isUp`
};

} // namespace velorin
