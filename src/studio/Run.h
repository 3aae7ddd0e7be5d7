// The flags of the run: a click sets them, and a running loop tests them.
#pragma once

#include "studio/View.h"

#include <cstdint>
#include <string>

namespace velorin {

/// What the left button does on a tableau, `EditMode`.
namespace editMode {
constexpr int draw = 0;
constexpr int marker = 1;
constexpr int select = 2;
} // namespace editMode

/// What the right button does while `EditMode` draws, `RightClickMode`.
namespace rightClick {
constexpr int erase = 0;
constexpr int menu = 1;
constexpr int polynotes = 2;
} // namespace rightClick

struct Run {
    Flag IsPlaying = flagClear; ///< the song runs; clearing it ends the loop at the next column
    Flag PauseFlag = flagClear; ///< a pause was requested; also read at the next start
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
    Flag LoadingMain = flagClear; ///< during start-up, when the toolbar buttons do nothing

    std::int16_t EditMode = editMode::draw;
    std::int16_t RightClickMode = rightClick::erase;
    std::string SongsFolder; ///< full path of the default place for scores
    std::string WavFileName; ///< the current file: the WAV recorded, or the file chosen
    std::string MixerPath;   ///< the system's sound mixer
};

} // namespace velorin
