// Packing and sending of notes: single ones, chords with their strum, and whole columns.
#include "playback/NoteSounding.h"

#include "platform/Clock.h"
#include "platform/Text.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

#include <limits>

namespace velorin {

namespace {

constexpr int noteOn = 0x90;
constexpr int noteOff = 0x80;

// A drum is struck on the percussion channel and released on another: drums end by themselves, and
// a release that reached them would cut the sound of the next stroke short.
constexpr std::int16_t percussionOffChannel = 12;

constexpr double chordRootShare = 0.85; ///< of the row's velocity; 127 gives 108
constexpr double chordNoteShare = 0.65; ///< of the root's; 108 gives 70

constexpr int strumFirstMs = 45;
constexpr int strumNextMs = 35;

std::int16_t scaled(std::int16_t velocity, double share) {
    return static_cast<std::int16_t>(platform::roundHalfEven(velocity * share));
}

bool fitsInt16(int number) {
    return number >= std::numeric_limits<std::int16_t>::min() &&
           number <= std::numeric_limits<std::int16_t>::max();
}

bool isRow(int row) {
    return row >= 0 && row < scoreRows;
}

} // namespace

void NoteSounding::StartNote(int noteIndex, int row) {
    sound(noteIndex, row, studio_.run.PlayColumn);
}

void NoteSounding::StartNoteBtnDn(int noteIndex) {
    sound(noteIndex, SoundRow, studio_.view.FirstColumn + studio_.drag.MouseColumn);
}

// `Velocity` goes back to 127 only behind a whole chord. A note that ends the work early leaves it
// lowered, which the next note of a row without a volume box takes over.
void NoteSounding::sound(int noteIndex, int row, int column) {
    if (!takeKey(noteIndex, row, percussionChannel))
        return;
    const bool chord = chordApplies(row, column + 1);
    if (chord)
        Velocity = scaled(Velocity, chordRootShare);
    if (!sendNote(0, noteOn, NoteKey, Velocity))
        return;
    if (NoteChannel == percussionChannel || !chord)
        return;
    Velocity = scaled(Velocity, chordNoteShare);
    soundChord(row);
}

// The first chord note goes out whatever its interval, since the octave chords point downwards with
// it; of the other two 0 or less means that there is none.
void NoteSounding::soundChord(int row) {
    strum(row, strumFirstMs);
    if (!sendNote(1, noteOn, NoteKey + ChordInterval1, Velocity))
        return;
    strum(row, strumNextMs);
    if (ChordInterval2 > 0) {
        if (!sendNote(2, noteOn, NoteKey + ChordInterval2, Velocity))
            return;
        strum(row, strumNextMs);
    }
    if (ChordInterval3 > 0 && !sendNote(3, noteOn, NoteKey + ChordInterval3, Velocity))
        return;
    Velocity = 127;
}

void NoteSounding::StopNote(int noteIndex) {
    if (!takeKey(noteIndex, SoundRow, percussionOffChannel))
        return;
    if (sendNote(0, noteOff, NoteKey, 0))
        endChord();
}

// The press tested the mark of the column behind the pointer, the release tests that of the column
// before it, so a chord that only a mark has made may sound on after the release.
void NoteSounding::StopNoteBtnUp(int noteIndex) {
    if (!takeKey(noteIndex, SoundRow, percussionOffChannel))
        return;
    if (!sendNote(0, noteOff, NoteKey, 0) || NoteChannel == percussionChannel)
        return;
    const int column = studio_.view.FirstColumn + studio_.drag.MouseColumn;
    if (chordApplies(SoundRow, column - 1))
        endChord();
}

void NoteSounding::endChord() {
    const std::array intervals{ChordInterval1, ChordInterval2, ChordInterval3};
    int slot = 0;
    for (const int interval : intervals) {
        if (!sendNote(++slot, noteOff, NoteKey + interval, 0))
            return;
    }
}

void NoteSounding::StartColumnNotes() {
    forColumnNotes([this](int row, std::int16_t note) {
        readVolume(row);
        StartNote(note, row);
    });
}

void NoteSounding::StopColumnNotes() {
    forColumnNotes([this](int, std::int16_t note) { StopNote(note); });
}

void NoteSounding::forColumnNotes(const std::function<void(int, std::int16_t)>& sound) {
    for (int row = 0; row < scoreRows; ++row) {
        const auto note = columnNote(row);
        if (!note)
            continue;
        SoundRow = static_cast<std::int16_t>(row);
        const int column = studio_.view.FirstColumn + studio_.drag.PressColumn;
        ChangeInstrument(studio_.score.InstrumentArray.at(row, column), row);
        sound(row, *note);
    }
}

// The note index that the pressed column adds to the pressed note. The top key, index 0, counts as
// nothing here.
std::optional<std::int16_t> NoteSounding::columnNote(int row) {
    if (studio_.setup.TrackHide(row) || row == studio_.score.CurrentRow)
        return std::nullopt;
    const int column = studio_.view.FirstColumn + studio_.drag.PressColumn;
    const auto cell = studio_.score.NoteArray.read(row, column);
    if (!cell || isEmpty(*cell) || pitchOf(*cell) < 1)
        return std::nullopt;
    return static_cast<std::int16_t>(pitchOf(*cell));
}

// Chord marks are read one entry further than the cell they belong to; `markColumn` is that entry.
bool NoteSounding::chordApplies(int row, int markColumn) {
    if (row < 0 || !isMusicRow(row))
        return false;
    return studio_.setup.Ch(row) || studio_.score.PolyArray.read(row + 1, markColumn) == 1;
}

bool NoteSounding::isPercussionRow(int row) const {
    return PercussionRow[static_cast<std::size_t>(row)] != flagClear;
}

// Sets `NoteKey` and `NoteChannel`. False if there is no such row or no such key.
bool NoteSounding::takeKey(int noteIndex, int row, std::int16_t drumChannel) {
    if (!isRow(row))
        return false;
    if (isPercussionRow(row)) {
        NoteKey = PercussionKey[static_cast<std::size_t>(row)];
        NoteChannel = drumChannel;
        return true;
    }
    if (!fitsInt16(noteIndex) || !fitsInt16(PitchToKey(noteIndex)))
        return false;
    NoteKey = static_cast<std::int16_t>(PitchToKey(noteIndex));
    NoteChannel = static_cast<std::int16_t>(row);
    return true;
}

// A message is one sum: status and channel, 256 times the key, 65536 times the velocity. A negative
// key therefore borrows from the byte above it: key -1 at velocity 70 sends 90 FF 45. The product
// with the key is a 16-bit one and refuses what it cannot hold.
bool NoteSounding::sendNote(int slot, int status, int key, int velocity) {
    if (!fitsInt16(key * 256))
        return false;
    const std::int64_t sum = std::int64_t{status} + NoteChannel + std::int64_t{key} * 256 +
                             std::int64_t{velocity} * 65536;
    if (sum < std::numeric_limits<std::int32_t>::min())
        return false;
    const auto message = static_cast<std::int32_t>(sum);
    LastMessages[static_cast<std::size_t>(slot)] = message;
    studio_.platform.midi.midiOutShortMsg(MidiHandle, static_cast<std::uint32_t>(message));
    return true;
}

// The wait holds the whole program, so the rows below a strummed chord sound later than those above
// it.
void NoteSounding::strum(int row, int milliseconds) {
    if (studio_.setup.Chkstrum(row))
        studio_.platform.clock.hold(milliseconds);
}

// Row 9 has no volume box: its notes take the velocity that the row before has left.
void NoteSounding::readVolume(int row) {
    const auto text = studio_.setup.vol(row);
    const auto volume = text ? platform::readInt16(*text) : std::nullopt;
    if (volume)
        Velocity = *volume;
}

} // namespace velorin
