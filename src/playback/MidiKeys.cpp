// Keys to notes of the current row.
#include "playback/MidiKeys.h"

#include "model/Cell.h"
#include "playback/NoteSounding.h"
#include "studio/Studio.h"

namespace velorin {

namespace {

// The two number the same keys, from the top and from the bottom.
int pitchOfKey(int key) {
    return PitchToKey(key);
}

} // namespace

MidiKeys::MidiKeys(Studio& studio, NoteSounding& sounding) : studio_(studio), sounding_(sounding) {
    rows_.fill(isUp);
}

// The instrument is sent for each key: the mouse, a lesson or the end of a song may have left
// another program on the channel.
void MidiKeys::press(int key) {
    if (key < 0 || key >= keys)
        return;
    release(key);
    const int row = studio_.score.CurrentRow;
    if (!studio_.run.IsPlaying.isSet())
        sounding_.ChangeInstrument(studio_.score.RowInstrument[row], row);
    sounding_.startKey(pitchOfKey(key), row);
    rows_[static_cast<std::size_t>(key)] = static_cast<std::int8_t>(row);
}

void MidiKeys::release(int key) {
    if (key < 0 || key >= keys)
        return;
    std::int8_t& row = rows_[static_cast<std::size_t>(key)];
    if (row == isUp)
        return;
    sounding_.stopKey(pitchOfKey(key), row);
    row = isUp;
}

void MidiKeys::releaseAll() {
    for (int key = 0; key < keys; ++key)
        release(key);
}

} // namespace velorin
