// Turns the cells of the grids into the tracks of a MIDI file.
#include "model/MidiExport.h"

#include "model/RowOptions.h"
#include "model/Score.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velorin {

namespace {

constexpr int ticksPerColumn = 12;
constexpr int microsecondsPerMinute = 60'000'000;
// Rule: row volumes, chords and chord marks have no effect on the export. Held by
// score/midi_export.
constexpr int exportVelocity = 127;

/// The part of the file built so far. Its size is fixed: bytes past its end are counted and
/// dropped.
class ExportBuffer {
public:
    /// Puts the low 8 bits of `byte`.
    void put(int byte) { putAt(position_++, byte); }

    void put(std::string_view text) {
        for (const char c : text)
            put(c);
    }

    /// Big-endian, the low bits of `number`.
    void putNumber(int number, int bytes) {
        for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
            put(number >> shift);
    }

    /// Delta times stay below 2^14, so two groups of seven bits are enough.
    void putDelta(int ticks) {
        if (ticks >= 128)
            put(0x80 | (ticks >> 7));
        put(ticks & 0x7F);
    }

    [[nodiscard]] int position() const { return position_; }

    /// Writes `length` into the four bytes reserved at `position`.
    void fillLength(int position, int length) {
        for (int i = 0; i < 4; ++i)
            putAt(position + i, length >> (8 * (3 - i)));
    }

    [[nodiscard]] std::string bytes() const {
        return {bytes_.data(), std::min(static_cast<std::size_t>(position_), bytes_.size())};
    }

private:
    void putAt(int position, int byte) {
        if (static_cast<std::size_t>(position) < bytes_.size())
            bytes_[static_cast<std::size_t>(position)] = static_cast<char>(byte & 0xFF);
    }

    std::array<char, 10'000> bytes_{};
    int position_ = 0;
};

enum class Kind { rest, start, held };

Kind kindOf(int cell) {
    if (isEmpty(cell))
        return Kind::rest;
    return isStart(cell) ? Kind::start : Kind::held;
}

/// Writes the track of one row, column by column.
class RowWalk {
public:
    RowWalk(ExportBuffer& buffer, int row) : buffer_(buffer), row_(row) {}

    /// One column; `present` is the cell's kind, or a rest after the end of the song.
    void step(int column, int cell, int instrument, Kind present);

    void endTrack(int column) {
        putDeltaTo(column);
        buffer_.put("\xFF\x2F");
        buffer_.put(0);
    }

private:
    void changeInstrument(int column, int instrument);
    void noteOn(int column, int cell);
    void noteOff(int column);
    void putDeltaTo(int column);

    ExportBuffer& buffer_;
    int row_;
    int PrevCell = -1;
    int PrevInstrument = -1;
    int LastEventColumn = 0;
    bool isPercussionNow_ = false;
    int percussionKey_ = 0;
};

void RowWalk::putDeltaTo(int column) {
    buffer_.putDelta((column - LastEventColumn) * ticksPerColumn);
    LastEventColumn = column;
}

void RowWalk::changeInstrument(int column, int instrument) {
    isPercussionNow_ = isPercussion(instrument);
    if (isPercussionNow_) {
        percussionKey_ = percussionKey(instrument);
        return;
    }
    putDeltaTo(column);
    buffer_.put(0xC0 + row_);
    buffer_.put(instrument);
}

void RowWalk::noteOn(int column, int cell) {
    putDeltaTo(column);
    buffer_.put(0x90 + (isPercussionNow_ ? percussionChannel : row_));
    buffer_.put(isPercussionNow_ ? percussionKey_ : PitchToKey(pitchOf(cell)));
    buffer_.put(exportVelocity);
}

void RowWalk::noteOff(int column) {
    putDeltaTo(column);
    buffer_.put(0x80 + (isPercussionNow_ ? percussionChannel : row_));
    buffer_.put(isPercussionNow_ ? percussionKey_ : PitchToKey(pitchOf(PrevCell)));
    buffer_.put(0);
}

// Rule: the instrument changes before the old note ends. If a row goes straight from one percussion
// sound to another, or from percussion to a melodic instrument or back, the note off already has
// the new key and channel. Held by score/midi_export.
void RowWalk::step(int column, int cell, int instrument, Kind present) {
    const bool sounded = kindOf(PrevCell) != Kind::rest;
    const bool starts = present == Kind::start;
    if (starts && instrument != PrevInstrument)
        changeInstrument(column, instrument);
    if (sounded && present != Kind::held)
        noteOff(column);
    if (starts)
        noteOn(column, cell);
    PrevCell = cell;
    if (starts)
        PrevInstrument = instrument;
}

// Writes the header and the tempo track, which has no notes. At tempo 0 a quarter note has no
// length; 0 is written for it.
void putHeader(ExportBuffer& buffer, int tempo) {
    constexpr int headerBytes = 6;
    constexpr int format = 1;
    constexpr int tempoTrackBytes = 19;
    buffer.put("MThd");
    buffer.putNumber(headerBytes, 4);
    buffer.putNumber(format, 2);
    buffer.putNumber(1 + scoreRows, 2);
    buffer.putNumber(4 * ticksPerColumn, 2); // ticks of a quarter note
    buffer.put("MTrk");
    buffer.putNumber(tempoTrackBytes, 4);
    buffer.putNumber(0x00FF5103, 4); // delta 0: the tempo, three bytes
    buffer.putNumber(tempo == 0 ? 0 : microsecondsPerMinute / tempo, 3);
    buffer.putNumber(0x00FF5804, 4); // delta 0: the measure, four bytes
    buffer.putNumber(0x04021808, 4); // 4/4, 24 clocks a beat, 8 demisemiquavers a quarter note
    buffer.putNumber(0x00FF2F00, 4); // delta 0: the end of the track
}

void putTrack(ExportBuffer& buffer, const Score& score, int row, bool isHidden) {
    buffer.put("MTrk");
    const int lengthPosition = buffer.position();
    buffer.putNumber(0, 4);
    const int end = score.LastColumn;
    RowWalk walk(buffer, row);
    for (int column = 0; column <= end && !isHidden; ++column) {
        const int cell = score.NoteArray.read(row, column).value_or(emptyCell);
        const int instrument = score.InstrumentArray.read(row, column).value_or(0);
        walk.step(column, cell, instrument, column == end ? Kind::rest : kindOf(cell));
    }
    walk.endTrack(end);
    buffer.fillLength(lengthPosition, buffer.position() - lengthPosition - 4);
}

} // namespace

std::string midiFileOf(Score& score, const RowOptions& rows) {
    ExportBuffer buffer;
    putHeader(buffer, score.Tempo);
    score.FindLastColumn(rows);
    // One more column ends every open note.
    ++score.LastColumn;
    for (int row = 0; row < scoreRows; ++row)
        putTrack(buffer, score, row, rows.TrackHide(row));
    return buffer.bytes();
}

} // namespace velorin
