// One column of the song: what each row's cell says against the cell of the column before, and the
// share of the song that has been played.
#include "playback/NoteSounding.h"
#include "playback/PlaybackDesk.h"
#include "playback/Progress.h"
#include "playback/Sequencer.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

#include <cmath>
#include <limits>
#include <string>

namespace velorin {

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
// The pitch that is stopped is that of the last cell. A held cell behind a rest sounds nothing, but
// is stopped where it ends. A program change goes out only when a note begins.
void Sequencer::playRow(int row) {
    const auto index = static_cast<std::size_t>(row);
    const Score& score = studio_.score;
    const int column = studio_.run.PlayColumn;
    const std::int16_t cell = score.NoteArray.read(row, column).value_or(emptyCell);
    const std::int16_t before = LastCell[index];
    sounding_.SoundRow = static_cast<std::int16_t>(row);
    sounding_.readVolume(row);
    if (isStart(cell)) {
        const std::int16_t instrument = score.InstrumentArray.at(row, column);
        if (instrument != LastInstrument[index])
            sounding_.ChangeInstrument(instrument, row);
        LastInstrument[index] = instrument;
    }
    if (!isEmpty(before) && !isHeld(cell))
        sounding_.StopNote(pitchOf(before));
    if (isStart(cell))
        sounding_.StartNote(pitchOf(cell), row);
    LastCell[index] = cell;
}

// The last cells are those of the last column played, so this finds something only where the song
// was stopped within a note.
void Sequencer::endLastNotes() {
    for (int row = 0; row < scoreRows; ++row) {
        if (studio_.setup.TrackHide(row))
            continue;
        sounding_.SoundRow = static_cast<std::int16_t>(row);
        const std::int16_t last = LastCell[static_cast<std::size_t>(row)];
        if (!isEmpty(last))
            sounding_.StopNote(pitchOf(last));
    }
}

// From twice the song's length on, which only looping reaches, the caption stays as it is. A share
// of nothing has no digits: " %".
void Sequencer::showProgress() {
    Run& run = studio_.run;
    const int last = studio_.score.LastColumn;
    if (run.ProgressCount < std::numeric_limits<std::int32_t>::max())
        ++run.ProgressCount;
    const double share = last == 0 ? 0.0 : static_cast<double>(run.ProgressCount) / last;
    const bool counts = std::floor(share) <= 1.0;
    const std::string caption = counts ? percentCaption(share) : std::string();
    desk_.showProgress(share, counts ? &caption : nullptr);
}

} // namespace velorin
