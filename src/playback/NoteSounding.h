// The sounding of notes: the one place that talks to the MIDI output device.
#pragma once

#include "platform/MidiOut.h"
#include "score/Cell.h"
#include "score/View.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

namespace velorin {

class PlaybackDesk;
struct Studio;

/// Opens and closes the device, turns cells into short messages, sounds chords and selects
/// instruments. No operation here yields, so `Velocity`, `NoteKey` and `NoteChannel` may be shared
/// by all of them. Rows [0, 13); a note index counts from the top of the tableau, so index 60 is
/// key 67.
///
/// A key outside [-128, 127] has no place in a message: the note that would need it, and the notes
/// of the same operation behind it, are not sent. The device's own refusals are not looked at.
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

    /// Sets `Velocity` from the row's volume box, for the row's next note. A row without a box, or
    /// a number outside 16 bits, leaves it.
    void readVolume(int row);

    void Device_Click(); ///< closes and reopens the device that `Form3`'s `Combo2` shows
    /// Closes the device and opens `index` in its place. A failure leaves the closed handle.
    void openDevice(int index);
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
    std::array<std::int32_t, 4> LastMessages{}; ///< of the last notes: root, then the chord's
    std::array<Flag, scoreRows> PercussionRow{};
    std::array<std::int16_t, scoreRows> PercussionKey{};
    /// The percussion sound last chosen, 128 or more once there was one.
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
    PlaybackDesk& desk_;
};

} // namespace velorin
