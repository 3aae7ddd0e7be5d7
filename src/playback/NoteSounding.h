// The sounding of notes: the one place that talks to the MIDI output device.
#pragma once

#include "platform/MidiOut.h"
#include "score/Cell.h"
#include "score/View.h"

#include <array>
#include <cstdint>

namespace velorin {

class PlaybackDesk;
class StopWatch;
struct Studio;

/// Opens and closes the device, turns cells into short messages, sounds chords and selects
/// instruments. No operation here yields, so `Velocity`, `NoteKey` and `NoteChannel` may be shared
/// by all of them. Rows [0, 13).
class NoteSounding {
public:
    NoteSounding(Studio& studio, PlaybackDesk& desk) : studio_(studio), desk_(desk) {}

    void StartNote(int noteIndex, int row); ///< for the sequencer and the percussion tableau
    void StartNoteBtnDn(int noteIndex);     ///< for a press on `MusicBox`, on `SoundRow`
    void StopNote(int noteIndex);      ///< ends a note of `SoundRow` and four possible chord notes
    void StopNoteBtnUp(int noteIndex); ///< ends what `StartNoteBtnDn` started
    void StartColumnNotes();           ///< the other unhidden rows at the pressed column
    void StopColumnNotes();
    void ChangeInstrument(int instrument, int row);

    void Device_Click(); ///< closes and reopens the device that `Form3`'s `Combo2` shows
    void Combo2_Click() { Device_Click(); } ///< the main window's own device list was chosen from
    void Combo1_Click();                    ///< the instrument list's choice goes to `CurrentRow`
    void Combo5_Click();                    ///< the percussion list's choice goes to `CurrentRow`
    void Command9_Click();                  ///< the number in `Instxt` goes to `CurrentRow`

    void StopSound();       ///< stops playing and resets the device
    void Command32_Click(); ///< "Stop all": the same, and every file that plays
    void StopallSound();    ///< closes every file that plays
    void stopitall();       ///< the last close, at the program's end

    platform::MidiOutHandle MidiHandle = 0;
    std::int32_t MidiDeviceIndex = 0;
    std::uint32_t MidiResult = 0;
    std::int16_t SoundRow = 0;
    std::int16_t Velocity = 127;
    std::int16_t NoteKey = 0;
    std::int16_t NoteChannel = 0;
    std::array<std::int32_t, 4> LastMessages{};
    std::array<Flag, scoreRows> PercussionRow{};
    std::array<std::int16_t, scoreRows> PercussionKey{};
    std::int16_t PercussionChoice =
        0; ///< the percussion sound last chosen, 128 or more once there was one
    std::int16_t ChordInterval1 =
        3; ///< semitones above the root; the start values are the minor chord
    std::int16_t ChordInterval2 = 7;
    std::int16_t ChordInterval3 = 12;

private:
    Studio& studio_;
    PlaybackDesk& desk_;
};

} // namespace velorin
