// The song loop: walks the grids column by column inside the play command, and yields between
// columns.
#pragma once

#include "model/RowArray.h"
#include "playback/PositionDisplay.h"
#include "playback/WaitingLoops.h"

#include <cstdint>

namespace velorin {

class NoteSounding;
class StopWatch;
struct Studio;

/// A play runs inside the call that started it, on the user-interface thread. It processes events
/// during each column and after it. If another handler changes `IsPlaying` or `PauseFlag`, the play
/// sees that at its next test. When the program ends, every play returns at its next yield, without
/// its end steps.
class Sequencer {
public:
    Sequencer(Studio& studio, NoteSounding& sounding, StopWatch& watch)
        : studio_(studio), sounding_(sounding), watch_(watch), display_(studio) {}

    void PlayAndStop_Click(int index); ///< 0 plays, any other index stops
    void RewindBut_Click();            ///< moves the view to column 0, unless the song plays
    void PlaySong2();                  ///< plays the song from its start, or from a pause on
    /// Plays the block from `PlayBlockStart` to `PlayBlockEnd`. The caller sets `IsPlaying` before
    /// and clears it afterwards.
    ///
    /// Rule: a block of one column is not played. Held by playback/selections.
    void PlaySelection();
    void PlayNotes(); ///< sends one column
    void FindLastColumn();
    void DisableControls();
    void EnableControls();
    /// Moves the marker, then the play column, which may end the song or start it again; then
    /// yields. Called by its name in transcripts only; the song loop takes the same steps.
    void AdvancePlayPosition();

    float ColumnTime = 0.0F;    ///< seconds per column, computed when playing starts
    std::int32_t PlayTimer = 0; ///< stopwatch number, set once by the start-up
    RowArray<std::int16_t> LastCell{};
    RowArray<std::int16_t> LastInstrument{};

private:
    /// How a walk through the columns ended.
    enum class Walk {
        finished,    ///< the end steps of the pass come next
        returned,    ///< the pass is over without end steps: a pause, or no block to play
        startsOver,  ///< a pass begins inside this one, which waits for it
        programEnds, ///< nothing more is done
    };

    void playOrStop(int index);
    void play(Pass pass);
    Walk enter(Pass pass);
    void enterSong();
    [[nodiscard]] bool enterSelection();
    void showStartColumn();
    void prepareMarker();
    void computeColumnTime();
    Walk walk();
    Walk continueAfterInnerPass();
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
    PositionDisplay display_;
};

} // namespace velorin
