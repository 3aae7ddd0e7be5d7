// The song loop: walks the grids column by column inside the play command, and yields between
// columns.
#pragma once

#include "playback/PositionDisplay.h"
#include "playback/WaitingLoops.h"
#include "score/Cell.h"

#include <array>
#include <cstdint>

namespace velorin {

class NoteSounding;
class PlaybackDesk;
class StopWatch;
struct Studio;

/// A play runs inside the call that began it, on the user-interface thread, and lets the message
/// loop through while a column lasts and behind each column. What other handlers do meanwhile to
/// `IsPlaying` and `PauseFlag` counts at the next test. When the program ends, every play returns
/// at its next yield and leaves all else as it is.
class Sequencer {
public:
    Sequencer(Studio& studio, NoteSounding& sounding, StopWatch& watch, PlaybackDesk& desk)
        : studio_(studio),
          sounding_(sounding),
          watch_(watch),
          desk_(desk),
          display_(studio, desk) {}

    void PlayAndStop_Click(int index); ///< 0 plays, any other index stops
    void RewindBut_Click();            ///< the view back to column 0, unless the song plays
    void PlaySong2();                  ///< the whole song, or on from a pause
    /// The block from `PlayBlockStart` to `PlayBlockEnd`, if it has two columns or more. The caller
    /// sets `IsPlaying` before and clears it afterwards.
    void PlaySelection();
    void PlayNotes(); ///< sends one column
    void FindLastColumn();
    void DisableControls();
    void EnableControls();
    /// One step of the marker, then of the play column, which may end the song or begin it again;
    /// then a yield.
    void AdvancePlayPosition();

    float ColumnTime = 0.0F;    ///< seconds per column, computed when playing starts
    std::int32_t PlayTimer = 0; ///< stopwatch number; the start-up gets it, once
    std::array<std::int16_t, scoreRows> LastCell{};
    std::array<std::int16_t, scoreRows> LastInstrument{};

private:
    /// What came of a walk through the columns.
    enum class Walk {
        finished,    ///< the end steps of the pass are due
        returned,    ///< the pass is over without them: a pause, or no block to play
        startsOver,  ///< a pass begins inside this one, which waits for it
        programEnds, ///< nothing more is to be done
    };

    void play(Pass pass);
    Walk enter(Pass pass);
    void enterSong();
    [[nodiscard]] bool enterSelection();
    void showStartColumn();
    void prepareMarker();
    void computeColumnTime();
    Walk walk();
    Walk goOnBehindInnerPass();
    void playRow(int row);
    [[nodiscard]] bool stepColumn();
    [[nodiscard]] bool endColumn();
    void pause();
    void finish(Pass pass);
    void endLastNotes();
    void clearMarks();
    void finishRecording();
    void showProgress();
    [[nodiscard]] Pass nextPass() const;
    [[nodiscard]] bool yield();

    Studio& studio_;
    NoteSounding& sounding_;
    StopWatch& watch_;
    PlaybackDesk& desk_;
    PositionDisplay display_;
};

} // namespace velorin
