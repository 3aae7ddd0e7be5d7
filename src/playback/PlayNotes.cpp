// Plays one column of the song: compares each row's cell with the one before. Also computes the
// share of the song that has been played.
#include "playback/NoteSounding.h"
#include "playback/Progress.h"
#include "playback/Sequencer.h"
#include "studio/MainDesk.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <cmath>
#include <limits>
#include <string>

namespace velorin {

// Rule: a row that is hidden while its note sounds is skipped, so the note is never ended. Held by
// playback/changes_while_playing.
void Sequencer::PlayNotes() {
    for (int row = 0; row < scoreRows; ++row) {
        if (!studio_.setup.TrackHide(row))
            playRow(row);
    }
}

// before \ now    empty          start                  held
//   empty           -            start                    -
//   start, held    stop          stop, start              -
//
// The pitch that is stopped is that of the last cell. A program change is sent only when a note
// starts.
//
// Rule: a held cell after a rest is silent, but it is stopped where it ends. Held by
// playback/a_song.
void Sequencer::playRow(int row) {
    const Score& score = studio_.score;
    const int column = studio_.run.PlayColumn;
    const std::int16_t cell = score.NoteArray.read(row, column).value_or(emptyCell);
    const std::int16_t before = LastCell[row];
    sounding_.SoundRow = static_cast<std::int16_t>(row);
    sounding_.readVolume(row);
    if (isStart(cell)) {
        const std::int16_t instrument = score.InstrumentArray.at(row, column);
        if (instrument != LastInstrument[row])
            sounding_.ChangeInstrument(instrument, row);
        LastInstrument[row] = instrument;
    }
    if (!isEmpty(before) && !isHeld(cell))
        sounding_.StopNote(pitchOf(before));
    if (isStart(cell))
        sounding_.StartNote(pitchOf(cell), row);
    LastCell[row] = cell;
}

// The last cells are those of the last column played, so this ends something only if the song was
// stopped within a note.
void Sequencer::endLastNotes() {
    for (int row = 0; row < scoreRows; ++row) {
        if (studio_.setup.TrackHide(row))
            continue;
        sounding_.SoundRow = static_cast<std::int16_t>(row);
        const std::int16_t last = LastCell[row];
        if (!isEmpty(last))
            sounding_.StopNote(pitchOf(last));
    }
}

// Rule: from twice the song's length on, which only a looping song reaches, the caption no longer
// changes. Held by the unit test Progress.FromTwiceTheSongOnKeepsItsCaption.
void Sequencer::showProgress() {
    Run& run = studio_.run;
    const int last = studio_.score.LastColumn;
    if (run.ProgressCount < std::numeric_limits<std::int32_t>::max())
        ++run.ProgressCount;
    const double share = last == 0 ? 0.0 : static_cast<double>(run.ProgressCount) / last;
    const bool counts = std::floor(share) <= 1.0;
    const std::string caption = counts ? percentCaption(share) : std::string();
    studio_.desk->showProgress(share, counts ? &caption : nullptr);
}

} // namespace velorin
