// What the logic asks of the main window: its pictures, its focus, its hidden controls, its locks.
#pragma once

#include <string>

namespace velorin {

/// Rule: these text boxes of the main window are never shown, but procedures read their values and
/// their handlers run. Held by shell/hidden_controls.
enum class MainText {
    Instxt, ///< the instrument number
    Text3,  ///< Duplicate's notes
    Text4,  ///< Duplicate's repeat
    Text5,  ///< Duplicate's beats
};

/// Implemented by `MainWindowDesk`; reached as `Studio::desk`. Row [0, 13). Column offsets count
/// from the left edge of the view. List indices count from 0, -1 is no entry. User-interface thread
/// only.
class MainDesk {
public:
    virtual ~MainDesk() = default;

    // Pictures
    virtual void DrawNoteArray() = 0;
    virtual void DrawBeatArray() = 0;
    virtual void DrawPolyTableau() = 0;
    virtual void clearMusicBox() = 0;
    /// How often the whole music tableau was drawn, by any caller.
    [[nodiscard]] virtual unsigned musicDraws() = 0;
    virtual void GetColumn(int offset) = 0; ///< saves the strip that the marker will cover
    virtual void PutColumn(int offset) = 0; ///< restores that strip
    virtual void drawPlayMarker(int offset) = 0;
    virtual void Form_Resize() = 0; ///< lays the window out again
    /// Shows one line in the hint window.
    virtual void showHint(const std::string& line) = 0;

    // Focus and scroll bar
    /// Gives the control the focus and runs its focus handler if it had not had it. A disabled or
    /// hidden control does not take the focus.
    virtual void focusMusicBox() = 0;
    virtual void focusBeatbox() = 0;
    virtual void setBeatboxHeight(int heightPx) = 0;
    [[nodiscard]] virtual int beatboxHeight() = 0; ///< in pixels
    /// Scrolls so that score column `column` and the line of `pitch` are in the middle; -1 leaves
    /// that direction alone. The tableaux are not redrawn.
    virtual void moveViewTo(int column, int pitch) = 0;
    /// The lowest value of the horizontal scroll bar.
    [[nodiscard]] virtual int HScroll1Min() = 0;
    /// Moves the bar; a change runs `HScroll1_Change`. A value outside its range does nothing.
    virtual void setHScroll1(int value) = 0;

    // Hidden controls
    [[nodiscard]] virtual std::string text(MainText box) = 0;
    virtual void setText(MainText box, const std::string& text) = 0;
    /// The instrument list; a change runs `Combo1_Click`.
    virtual void setMainCombo1(int index) = 0;
    virtual void enableMainTrackSel(int row, bool enabled) = 0;
    virtual void setCheck1(bool checked) = 0; ///< the copy of the Recording Toolbar's `Check2`
    /// Selects the sound of a row on the device.
    virtual void ChangeInstrument(int instrument, int row) = 0;
    /// Sets `EditMode` and its pointer, as button `index` 1 to 3 of the Editing Toolbar does.
    virtual void FunctionBut_Click(int index) = 0;

    // Locks while the song plays
    /// `Picture11`, `MusicBox`, `Beatbox`, `HScroll1` and `VScroll1` together.
    virtual void enableTableaux(bool enabled) = 0;
    virtual void enableWizard(bool enabled) = 0; ///< if it is open
    virtual void enableToolbars() = 0; ///< `Form2`, `Form3` and `Record`, each if it is open

    // The other windows
    /// Takes the recording window and the tutorial out of the top-most state, if they are open.
    virtual void leaveTopMost() = 0;
    virtual void returnToTopMost() = 0; ///< undoes `leaveTopMost`
    virtual void HideToolbars() = 0;    ///< every open one, while a file dialog is shown
    virtual void ShowToolbars() = 0;
    /// `Text1` of `Form2`: how many columns an insert opens.
    [[nodiscard]] virtual std::string Form2Text1() = 0;
    /// The marker's box of the Editing Toolbar, if that is open.
    virtual void setChkgraphics(bool checked) = 0;
    /// Sets the `L2` bar of `Record` to a share of its track, 0 or more, and its caption unless
    /// `caption` is null.
    virtual void showProgress(double ratio, const std::string* caption) = 0;
    virtual void endProgress() = 0;   ///< the bar back to a width of 1, no caption
    virtual void Recordcontrol() = 0; ///< ends the recording that the song was played for

    /// Makes the program's folder the current one. False if that fails.
    virtual bool changeToProgramFolder() = 0;
    /// An error that ends the run: shows `text` in a message box, then runs the exit command. The
    /// process ends with a status other than 0.
    virtual void endWithError(const std::string& text) = 0;
};

} // namespace velorin
