// The flags of the run: plain values that carry a click back into a running loop.
#pragma once

#include "score/View.h"

#include <cstdint>
#include <string>

namespace velorin {

struct Run {
    Flag IsPlaying = flagClear; ///< the song runs; clearing it ends the loop at the next column
    Flag PauseFlag = flagClear; ///< asked to pause; also read at the next start
    Flag LoopSong = flagClear;  ///< play again from the start after the end
    Flag ShowNotePosition = flagSet;   ///< the playing marker is shown
    Flag PlayingSelection = flagClear; ///< `PlaySelection` runs
    Flag MarkerSaved = flagClear;      ///< `SwapScreen` holds pixels that can be put back
    std::int16_t MarkerOffset = 0;     ///< the marker's column, counted from `FirstColumn`
    std::int16_t PlayColumn = 0;       ///< the score column being played
    std::int16_t PlayBlockStart = 0;   ///< first column of the block that `PlaySelection` plays
    std::int16_t PlayBlockEnd = 0;     ///< last column of it
    std::int32_t ProgressCount = 0;    ///< columns played since the start

    Flag RecordingFlag = flagClear;
    Flag SoundFinished = flagClear;
    Flag PlayerPaused = flagClear;
    Flag EncodeCancelled = flagClear;

    Flag Form2Open = flagClear;
    Flag Form3Open = flagClear;
    Flag RecordToolbarOpen = flagClear;
    Flag WizOpen = flagClear;
    Flag LoadingMain = flagClear; ///< the start-up is not over: the toolbar buttons do nothing

    std::int16_t EditMode = 0; ///< left button on a tableau: 0 draws, 1 sets the marker, 2 selects
    std::int16_t RightClickMode = 0; ///< right button: 0 erases, 1 opens a menu, 2 sets polynotes
    std::string SongsFolder;         ///< full path of the default place for scores
    std::string WavFileName;         ///< the file in hand: the WAV recorded, or the file chosen
    std::string MixerPath;           ///< the system's sound mixer
};

} // namespace velorin
