// Sounds notes. The only code that sends messages to the MIDI output device.
#pragma once

#include "model/RowArray.h"
#include "platform/CheckedArray.h"
#include "platform/MidiOut.h"
#include "studio/View.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace velorin {

struct Studio;

/// Opens and closes the device, turns cells into short messages, sounds chords and selects
/// instruments. No operation here yields, so `Velocity`, `NoteKey` and `NoteChannel` may be shared
/// by all of them. Rows [0, 13); a note index counts from the top of the tableau, so index 60 is
/// key 67. Errors of the device are ignored.
///
/// Rule: a key outside [-128, 127] overflows the message. That note and the later notes of the same
/// operation are not sent. Held by playback/chords_at_the_edges.
class NoteSounding {
public:
    NoteSounding(Studio& studio) : studio_(studio) {}

    void StartNote(int noteIndex, int row); ///< for the sequencer and the percussion tableau
    void StartNoteBtnDn(int noteIndex);     ///< for a press on `MusicBox`, on `SoundRow`
    void StopNote(int noteIndex);           ///< ends a note of `SoundRow` and its three chord notes
    void StopNoteBtnUp(int noteIndex);      ///< ends what `StartNoteBtnDn` started
    /// For a key of a MIDI keyboard: sounds on any row, hidden or not, at the row's volume, and as
    /// a chord if the row's box is checked. Chord marks belong to columns, so they do not count.
    void startKey(int noteIndex, int row);
    void stopKey(int noteIndex, int row); ///< ends what `startKey` started
    void StartColumnNotes();              ///< the other unhidden rows at the pressed column
    void StopColumnNotes();
    void ChangeInstrument(int instrument, int row);

    /// Starts one note for the user to hear a sound [0, 175) before it is chosen: an instrument on
    /// a channel that no row uses, a drum on the drums' channel. `velocity` [1, 127], `key` [0,
    /// 127] for an instrument. Changes no value of a row and none of those below.
    void startSample(int instrument, int velocity, int key);
    void stopSample(int instrument, int key); ///< ends the note that `startSample` started

    /// Sets `Velocity` from the row's volume box, for the row's next note. Without a box, or with a
    /// number outside 16 bits, `Velocity` stays.
    void readVolume(int row);

    void Device_Click(); ///< closes and reopens the device that `Form3`'s `Combo2` shows
    /// Closes the device and opens `index` in its place. A failure leaves the closed handle.
    void openDevice(int index);
    void Combo2_Click() { Device_Click(); } ///< a choice in the main window's device list
    void Combo1_Click();                    ///< the instrument list's choice goes to `CurrentRow`
    void Combo5_Click();                    ///< the percussion list's choice goes to `CurrentRow`
    void Command9_Click();                  ///< the number in `Instxt` goes to `CurrentRow`

    void StopSound();       ///< stops playing and resets the device
    void Command32_Click(); ///< "Stop all": the same, and every file that plays
    void StopallSound();    ///< closes every file that plays
    void stopitall();       ///< the last close, at the program's end

    /// While it is set, no message is sent, no chord is strummed, and the device stays as it is:
    /// for notes that were heard before they are drawn.
    bool isMuted = false;

    platform::MidiOutHandle MidiHandle = 0;
    std::int32_t MidiDeviceIndex = 0;
    std::uint32_t MidiResult = 0;
    std::int16_t SoundRow = 0;
    std::int16_t Velocity = 127;
    std::int16_t NoteKey = 0;
    std::int16_t NoteChannel = 0;
    platform::CheckedArray<std::int32_t, 4>
        LastMessages{}; ///< of the last notes: root, then the chord's
    RowArray<Flag> PercussionRow{};
    RowArray<std::int16_t> PercussionKey{};
    /// The percussion sound last chosen, 128 or more; 0 before the first choice.
    std::int16_t PercussionChoice = 0;
    /// Semitones above the root; the start values are the minor chord.
    std::int16_t ChordInterval1 = 3;
    std::int16_t ChordInterval2 = 7;
    std::int16_t ChordInterval3 = 12;

private:
    void sound(int noteIndex, int row, int column);
    void soundChord(int row);
    void endChord();
    [[nodiscard]] bool takeKey(int noteIndex, int row, std::int16_t drumChannel);
    [[nodiscard]] bool sendNote(int slot, int status, int key, int velocity);
    void sendShort(int status, int data1, int data2);
    void strum(int row, int milliseconds);
    [[nodiscard]] bool chordApplies(int row, int markColumn);
    [[nodiscard]] bool isPercussionRow(int row) const;
    [[nodiscard]] std::optional<std::int16_t> columnNote(int row);
    /// For each row with a note in the pressed column: makes it the sounding row, with the cell's
    /// instrument, and calls `sound` with the row and the note index.
    void forColumnNotes(const std::function<void(int, std::int16_t)>& sound);
    void applyInstrument(std::int16_t instrument);
    void closeDevice();
    void closeFiles();
    void sendMci(const char* command);

    Studio& studio_;
};

} // namespace velorin
