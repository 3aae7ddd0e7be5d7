// One session of the program without its windows: the state and everything that works on it.
#pragma once

#include "editing/BlockEdits.h"
#include "editing/Duplicate.h"
#include "playback/NoteSounding.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"
#include "studio/ScoreCommands.h"
#include "studio/ScoreFiles.h"
#include "studio/Studio.h"

namespace velorin {

/// The window program, the converter and each test make one. Windows take it by reference and call
/// its parts. It also plays, edits and saves without a main window. User-interface thread only; the
/// platform outlives it.
class Session {
public:
    explicit Session(platform::Platform& platform);

    /// Handles the selection of the row option `row` [0, 13): makes it the current row and draws
    /// it.
    ///
    /// Rule: the row then gets the instrument number in `Instxt`. Held by score/clear_all.
    void TrackSel_Click(int row);

    Studio studio;
    // Each part uses only those above it.
    StopWatch watch;
    NoteSounding sounding;
    Sequencer sequencer;
    ScoreCommands commands;
    ScoreFiles files;
    BlockEdits edits;
    Duplicate duplicate;
};

} // namespace velorin
