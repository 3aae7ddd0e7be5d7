// Joins the keys of a MIDI keyboard to chords.
#pragma once

#include <functional>
#include <vector>

namespace velorin {

/// A chord is what is pressed before the first of its keys is released. A key that is pressed after
/// that begins the next chord, so keys may overlap a little.
///
///     C   |=======|                    chord 1: C and E
///     E     |==========|
///     G                 |====|         chord 2: G
///
/// Keys are MIDI note numbers [0, 127]; others are ignored. Calls nothing before a chord is
/// complete. User-interface thread only.
class KeySteps {
public:
    /// Gets the keys of each chord, the highest first, when the first of them is released.
    std::function<void(const std::vector<int>& keys)> onChord;
    /// The sustain pedal was pressed. A chord that is held then comes before.
    std::function<void()> onRest;

    void press(int key); ///< a key that is down already is released first
    void release(int key);
    void pedal(int value); ///< of its controller, [0, 127]; down from 64 on
    /// Drops a chord that is held: its keys will not be released.
    void forget();

private:
    void complete();

    std::vector<int> keys_; ///< of the chord that is held
    bool isPedalDown_ = false;
};

} // namespace velorin
