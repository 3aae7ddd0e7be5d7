// What playing asks of the windows: the marker on the tableau, the locks, the progress of a
// recording.
#pragma once

#include "score/ScoreDesk.h"

#include <string>

namespace velorin {

/// Implemented by `Form1`. Column offsets count from the left edge of the screen.
class PlaybackDesk : public ScoreDesk {
public:
    virtual void clearMusicBox() = 0;

    /// Counts the times that the music tableau was drawn whole, by whomever.
    [[nodiscard]] virtual unsigned musicDraws() = 0;
    virtual void GetColumn(int offset) = 0; ///< saves the strip that the marker will cover
    virtual void PutColumn(int offset) = 0; ///< puts that strip back
    virtual void drawPlayMarker(int offset) = 0;

    /// `Picture11`, `MusicBox`, `Beatbox`, `HScroll1` and `VScroll1` together.
    virtual void enableTableaux(bool enabled) = 0;
    virtual void enableWizard(bool enabled) = 0; ///< if it is open
    virtual void enableToolbars() = 0; ///< `Form2`, `Form3` and `Record`, each if it is open

    /// The `L2` bar of `Record` as a share of its track, [0, 1] and above, and its caption, if
    /// there is a new one.
    virtual void showProgress(double ratio, const std::string* caption) = 0;
    virtual void endProgress() = 0;   ///< the bar back to a width of 1, no caption
    virtual void Recordcontrol() = 0; ///< ends the recording that the song was played for

    // The main window's own number box and device list.
    [[nodiscard]] virtual std::string Instxt() = 0;
    virtual void setInstxt(const std::string& text) = 0;
};

} // namespace velorin
