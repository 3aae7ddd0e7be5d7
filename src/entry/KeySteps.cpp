// Joins the keys of a MIDI keyboard to chords.
#include "entry/KeySteps.h"

#include <algorithm>
#include <utility>

namespace velorin {

namespace {

constexpr int highestKey = 127;
constexpr int pedalDown = 64;

} // namespace

void KeySteps::press(int key) {
    if (key < 0 || key > highestKey)
        return;
    release(key);
    keys_.push_back(key);
}

void KeySteps::release(int key) {
    if (std::find(keys_.begin(), keys_.end(), key) != keys_.end())
        complete();
}

void KeySteps::pedal(int value) {
    const bool isDown = value >= pedalDown;
    if (std::exchange(isPedalDown_, isDown) || !isDown)
        return;
    complete();
    if (onRest)
        onRest();
}

void KeySteps::forget() {
    keys_.clear();
    isPedalDown_ = false;
}

void KeySteps::complete() {
    std::vector<int> keys = std::exchange(keys_, {});
    std::sort(keys.rbegin(), keys.rend());
    if (!keys.empty() && onChord)
        onChord(keys);
}

} // namespace velorin
