// The song loop: walks the grids column by column inside the play command, and yields between
// columns.
#pragma once

#include "score/Cell.h"

#include <array>
#include <cstdint>

namespace velorin {

class NoteSounding;
class PlaybackDesk;
class StopWatch;
struct Studio;

class Sequencer {
public:
    Sequencer(Studio& studio, NoteSounding& sounding, StopWatch& watch, PlaybackDesk& desk)
        : studio_(studio), sounding_(sounding), watch_(watch), desk_(desk) {}

    void PlayAndStop_Click(int index); ///< 0 plays, any other index stops
    void RewindBut_Click();            ///< the view back to column 0, unless the song plays
    void PlaySong2();                  ///< the whole song, or on from a pause
    void PlaySelection();              ///< the block from `PlayBlockStart` to `PlayBlockEnd`
    void PlayNotes();                  ///< sends one column
    void FindLastColumn();
    void DisableControls();
    void EnableControls();
    void AdvancePlayPosition(); ///< one step of the marker, then of the play column

    float ColumnTime = 0.0F;    ///< seconds per column, computed when playing starts
    std::int32_t PlayTimer = 0; ///< stopwatch number, got once at start-up
    std::array<std::int16_t, scoreRows> LastCell{};
    std::array<std::int16_t, scoreRows> LastInstrument{};

private:
    Studio& studio_;
    NoteSounding& sounding_;
    StopWatch& watch_;
    PlaybackDesk& desk_;
};

} // namespace velorin
