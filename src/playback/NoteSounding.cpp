// Packs and sends notes: single notes, strummed chords and whole columns.
#include "playback/NoteSounding.h"

#include "platform/Clock.h"
#include "platform/MidiStatus.h"
#include "platform/Text.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <array>
#include <cassert>
#include <limits>

namespace velorin {

namespace {

using platform::noteOff, platform::noteOn;

// Rule: a drum starts on channel 9 but ends on channel 12. Drums end by themselves; a note off on
// channel 9 would cut off the next stroke. Held by playback/instruments.
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

// Rule: `Velocity` returns to 127 only after a whole chord. If a note cannot be sent, it stays low,
// and the next note of row 9, which has no volume box, uses it. Held by
// playback/chords_at_the_edges.
//
// Rule: the chord box of a percussion row adds no notes, but lowers the velocity. Held by
// playback/instruments.
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

// Rule: the first chord note is sent whatever its interval, since the octave chords go down with
// it. For the other two, 0 or less means no note. Held by playback/chords.
//
// Rule: the strum's wait after the second note takes place even if no third follows. Held by
// playback/strumming.
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

// Rule: the three chord notes are ended even if the note was no chord. Held by playback/a_song.
void NoteSounding::StopNote(int noteIndex) {
    if (!takeKey(noteIndex, SoundRow, percussionOffChannel))
        return;
    if (sendNote(0, noteOff, NoteKey, 0))
        endChord();
}

// Rule: the press tests the chord mark in entry column + 1, the release the one in entry column
// - 1. So a chord that only a mark made may sound on after the release. Held by
// playback/mouse_notes.
void NoteSounding::StopNoteBtnUp(int noteIndex) {
    if (!takeKey(noteIndex, SoundRow, percussionOffChannel))
        return;
    if (!sendNote(0, noteOff, NoteKey, 0) || NoteChannel == percussionChannel)
        return;
    const int column = studio_.view.FirstColumn + studio_.drag.MouseColumn;
    if (chordApplies(SoundRow, column - 1))
        endChord();
}

// Rule: an interval of 0 ends the root again. Held by playback/chords.
void NoteSounding::endChord() {
    const std::array intervals{ChordInterval1, ChordInterval2, ChordInterval3};
    int slot = 0;
    for (const int interval : intervals) {
        if (!sendNote(++slot, noteOff, NoteKey + interval, 0))
            return;
    }
}

// A column before the first has no chord mark.
void NoteSounding::startKey(int noteIndex, int row) {
    const std::int16_t velocity = Velocity;
    readVolume(row);
    sound(noteIndex, row, -2);
    Velocity = velocity;
}

// Not by `StopNote`, which also ends the notes of a chord that was not played: other keys may hold
// them.
void NoteSounding::stopKey(int noteIndex, int row) {
    if (!takeKey(noteIndex, row, percussionOffChannel))
        return;
    if (sendNote(0, noteOff, NoteKey, 0) && !isPercussionRow(row) && chordApplies(row, -1))
        endChord();
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

// The note that a row adds to the pressed note.
//
// Rule: pitch index 0, the top key, counts as no note here. Held by playback/column_notes.
std::optional<std::int16_t> NoteSounding::columnNote(int row) {
    if (studio_.setup.TrackHide(row) || row == studio_.score.CurrentRow)
        return std::nullopt;
    const int column = studio_.view.FirstColumn + studio_.drag.PressColumn;
    const auto cell = studio_.score.NoteArray.read(row, column);
    if (!cell || isEmpty(*cell) || pitchOf(*cell) < 1)
        return std::nullopt;
    return static_cast<std::int16_t>(pitchOf(*cell));
}

// `markColumn` is the entry in `PolyArray`, which is one more than the column of its cell.
bool NoteSounding::chordApplies(int row, int markColumn) {
    if (row < 0 || !isMusicRow(row))
        return false;
    return studio_.setup.Ch(row) || studio_.score.PolyArray.read(row + 1, markColumn) == 1;
}

bool NoteSounding::isPercussionRow(int row) const {
    return PercussionRow[row].isSet();
}

// Sets `NoteKey` and `NoteChannel`. False if there is no such row or no such key.
bool NoteSounding::takeKey(int noteIndex, int row, std::int16_t drumChannel) {
    if (!isRow(row))
        return false;
    if (isPercussionRow(row)) {
        NoteKey = PercussionKey[row];
        NoteChannel = drumChannel;
        return true;
    }
    if (!fitsInt16(noteIndex) || !fitsInt16(PitchToKey(noteIndex)))
        return false;
    NoteKey = static_cast<std::int16_t>(PitchToKey(noteIndex));
    NoteChannel = static_cast<std::int16_t>(row);
    return true;
}

// Rule: a message is one sum: status and channel, 256 times the key, 65536 times the velocity. So a
// negative key borrows from the next byte: key -1 at velocity 70 sends 90 FF 45. If 256 times the
// key does not fit 16 bits, nothing is sent. Held by playback/chords_at_the_edges.
bool NoteSounding::sendNote(int slot, int status, int key, int velocity) {
    assert(studio_.owner.isCaller());
    if (!fitsInt16(key * 256))
        return false;
    const std::int64_t sum = std::int64_t{status} + NoteChannel + std::int64_t{key} * 256 +
                             std::int64_t{velocity} * 65536;
    if (sum < std::numeric_limits<std::int32_t>::min())
        return false;
    const auto message = static_cast<std::int32_t>(sum);
    LastMessages[slot] = message;
    if (isMuted)
        return true;
    studio_.platform.midi.midiOutShortMsg(MidiHandle, static_cast<std::uint32_t>(message));
    return true;
}

// Rule: the wait blocks the whole program, so the rows after a strummed chord sound later. Held by
// playback/changes_while_playing.
void NoteSounding::strum(int row, int milliseconds) {
    if (!isMuted && studio_.setup.Chkstrum(row))
        studio_.platform.clock.hold(milliseconds);
}

// Rule: row 9 has no volume box, so its notes keep the velocity of the row before. Held by
// playback/a_song.
void NoteSounding::readVolume(int row) {
    const auto text = studio_.setup.vol(row);
    const auto volume = text ? platform::readInt16(*text) : std::nullopt;
    if (volume)
        Velocity = *volume;
}

} // namespace velorin
