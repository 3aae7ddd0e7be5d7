// Gives each note on its note off, and times in ticks.
#include "convert/PlayedMidiFile.h"

#include "convert/MidiWriter.h"
#include "midifile/MidiData.h"
#include "model/InstrumentNames.h"
#include "model/RowArray.h"
#include "platform/MidiStatus.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <optional>
#include <string_view>

namespace velorin::convert {

namespace {

using platform::noteOff, platform::noteOn, platform::programChange;

constexpr int columnsOfAQuarter = 4;

/// What a tick is.
struct TimeScale {
    std::uint32_t tempoUs = 500'000; ///< microseconds a quarter note, as the file can say it
    int division = 9600;             ///< ticks a quarter note
    int columnPower = 4;             ///< a column is a note of 1/16, 1/8 or 1/4: a power of 2

    // Ticks come from the true time, so a tempo of whole microseconds does not add up to an error.
    [[nodiscard]] std::int64_t tick(std::int64_t timeNs) const {
        return std::llround(static_cast<double>(timeNs) * division / (tempoUs * 1000.0));
    }
};

// At tempo 20 a quarter note lasts 2.4 s, and a tick of 9600 lasts 0.25 ms. Slower tempos, which
// only a file can have, get finer ticks. Below tempo 3 a quarter note has fewer columns, since the
// file has three bytes for its length.
TimeScale scaleFor(const PlayedSong& song) {
    constexpr double mostTempoUs = 0xFFFFFF;
    constexpr double slowTempoUs = 5'760'000; ///< a tick of 0.6 ms
    constexpr int fineDivision = 28'800;
    TimeScale scale;
    double quarterUs = song.columnSeconds * columnsOfAQuarter * 1e6;
    for (; quarterUs > mostTempoUs; --scale.columnPower)
        quarterUs /= 2.0;
    if (quarterUs > 0.0)
        scale.tempoUs = static_cast<std::uint32_t>(std::max(std::llround(quarterUs), 1LL));
    if (quarterUs > slowTempoUs)
        scale.division = fineDivision;
    while (scale.tick(song.lengthNs) > mostMidiTicks && scale.tempoUs < mostTempoUs / 2.0)
        scale.tempoUs *= 2;
    return scale;
}

std::string_view instrumentOf(const host::ShortMessage& noteOnMessage, int program) {
    if (noteOnMessage.channel() != percussionChannel)
        return instrumentNames[static_cast<std::size_t>(program)];
    const int entry = noteOnMessage.byte[1] - percussionKey(firstPercussion);
    const bool isKnown = entry >= 0 && entry < static_cast<int>(percussionNames.size());
    return isKnown ? percussionNames[static_cast<std::size_t>(entry)] : "Percussion";
}

std::string messageText(int status, int key, int velocity) {
    return {static_cast<char>(status), static_cast<char>(key), static_cast<char>(velocity)};
}

/// A note that the device sounds.
struct OpenNote {
    int row = 0;
    std::int64_t onTick = 0;
    std::optional<std::int64_t> cellEnd; ///< of a drum whose cell is over
};

/// The tracks of the rows, and a device that knows which notes sound.
class RowTracks {
public:
    explicit RowTracks(const TimeScale& scale);

    void take(const PlayedMessage& played);

    /// Ends what still sounds.
    void finish(std::int64_t endTick);

    [[nodiscard]] std::vector<MidiTrack> sounding() const;

private:
    struct Row {
        MidiTrack track;
        int program = 0;
        bool hasNotes = false;
        bool choosesDrums = false; ///< has programs of the drum channel, for the other rows too
        std::optional<int> drum;   ///< the key whose cell lasts
    };

    using Slot = std::optional<OpenNote>;

    Slot& slot(int channel, int key) {
        return notes_[static_cast<std::size_t>(channel)][static_cast<std::size_t>(key)];
    }
    void begin(const PlayedMessage& played, std::int64_t tick);
    void endBy(int row, int channel, int key, std::int64_t tick);
    void end(int channel, int key, std::int64_t tick);
    void endCell(int row, std::int64_t tick);

    TimeScale scale_;
    RowArray<Row> rows_;
    std::array<std::array<Slot, 128>, 16> notes_;
};

RowTracks::RowTracks(const TimeScale& scale) : scale_(scale) {
    for (int row = 0; row < scoreRows; ++row)
        rows_[row].track.addMeta(0, midiMeta::trackName, playedTrackName(row));
}

void RowTracks::take(const PlayedMessage& played) {
    const std::int64_t tick = scale_.tick(played.timeNs);
    const host::ShortMessage& message = played.message;
    const int kind = message.kind();
    const bool isSilent = kind == noteOn && message.byte[2] == 0;
    if (kind == noteOn && !isSilent) {
        begin(played, tick);
    } else if (kind == noteOff || isSilent) {
        endCell(played.row, tick);
        endBy(played.row, message.channel(), message.byte[1], tick);
    } else if (kind < 0xF0) {
        Row& row = rows_[played.row];
        if (kind == programChange)
            row.program = message.byte[1];
        row.choosesDrums = row.choosesDrums || message.channel() == percussionChannel;
        row.track.add(tick, {reinterpret_cast<const char*>(message.byte.data()), message.count});
    }
}

void RowTracks::begin(const PlayedMessage& played, std::int64_t tick) {
    const host::ShortMessage& message = played.message;
    const int channel = message.channel();
    const int key = message.byte[1];
    endBy(played.row, channel, key, tick); // a note on ends the note of the same key before
    Row& row = rows_[played.row];
    if (!row.hasNotes)
        row.track.addMeta(0, midiMeta::instrumentName, instrumentOf(message, row.program));
    row.hasNotes = true;
    row.track.add(tick, messageText(noteOn + channel, key, message.byte[2]));
    slot(channel, key) = OpenNote{played.row, tick, {}};
    if (channel == percussionChannel)
        row.drum = key;
}

// The note of another row ends one tick earlier. Its track may come later in the file, and then its
// note off would end the note that this row begins now.
void RowTracks::endBy(int row, int channel, int key, std::int64_t tick) {
    const Slot& open = slot(channel, key);
    if (open)
        end(channel, key, open->row == row ? tick : std::max(open->onTick, tick - 1));
}

void RowTracks::end(int channel, int key, std::int64_t tick) {
    Slot& open = slot(channel, key);
    if (!open)
        return;
    MidiTrack& track = rows_[open->row].track;
    track.add(tick, messageText(noteOff + channel, key, 0));
    // One tick more where another row ended the note.
    if (open->cellEnd && (*open->cellEnd < tick || *open->cellEnd > tick + 1))
        track.addMeta(*open->cellEnd, midiMeta::ownData, midifile::drumCellEnd(key));
    open.reset();
}

// The first note off that a row sends ends the cell of its drum, whatever its channel and key: the
// program sends it to another channel, and for the row's next sound if that changes here.
void RowTracks::endCell(int row, std::int64_t tick) {
    std::optional<int>& drum = rows_[row].drum;
    if (!drum)
        return;
    Slot& open = slot(percussionChannel, *drum);
    if (open && open->row == row)
        open->cellEnd = tick;
    else
        rows_[row].track.addMeta(tick, midiMeta::ownData, midifile::drumCellEnd(*drum));
    drum.reset();
}

void RowTracks::finish(std::int64_t endTick) {
    for (int channel = 0; channel < static_cast<int>(notes_.size()); ++channel) {
        for (int key = 0; key < 128; ++key)
            end(channel, key, endTick);
    }
}

std::vector<MidiTrack> RowTracks::sounding() const {
    std::vector<MidiTrack> tracks;
    for (int row = 0; row < scoreRows; ++row) {
        if (rows_[row].hasNotes || rows_[row].choosesDrums)
            tracks.push_back(rows_[row].track);
    }
    return tracks;
}

// The content of a time signature: the beats, their length as a power of 2, 24 clocks a beat, and 8
// notes of 1/32 in a quarter note.
std::string measure(int beats, int beatPower) {
    return {static_cast<char>(beats), static_cast<char>(beatPower), 24, 8};
}

MidiTrack tempoTrack(const TimeScale& scale, const PlayedSong& song, const std::string& name) {
    MidiTrack track;
    std::string text = name;
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
    track.addMeta(0, midiMeta::trackName, text);
    track.addMeta(0, midiMeta::tempo, bigEndian(scale.tempoUs, 3));
    if (song.leadNs > 0)
        track.addMeta(0, midiMeta::measure, measure(1, scale.columnPower));
    track.addMeta(scale.tick(song.leadNs), midiMeta::measure, measure(4, 2));
    return track;
}

} // namespace

std::string playedTrackName(int row) {
    constexpr std::array drumRows{"Percussion 1", "Rhythm", "Percussion 2", "Percussion 3",
                                  "Percussion 4"};
    return row < musicRows ? "Ch " + std::to_string(row + 1)
                           : drumRows[static_cast<std::size_t>(row - musicRows)];
}

// 7D is the manufacturer's number that is free for such use.
std::string playedMidiFile(const PlayedSong& song, const std::string& name) {
    const TimeScale scale = scaleFor(song);
    const std::int64_t lastNs = song.messages.empty() ? 0 : song.messages.back().timeNs;
    const std::int64_t endTick = scale.tick(std::max(song.lengthNs, lastNs));
    RowTracks rows(scale);
    for (const PlayedMessage& played : song.messages)
        rows.take(played);
    rows.finish(endTick);
    std::vector<MidiTrack> tracks{tempoTrack(scale, song, name)};
    for (MidiTrack& track : rows.sounding())
        tracks.push_back(std::move(track));
    return midiFile(scale.division, tracks, endTick);
}

} // namespace velorin::convert
