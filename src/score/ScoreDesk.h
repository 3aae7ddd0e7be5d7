// What the commands on the score ask of the main window: its pictures, its focus, its hidden lists.
#pragma once

namespace velorin {

/// Implemented by `Form1`. Row [0, 13); list indices count from 0, -1 is no entry.
class ScoreDesk {
public:
    virtual ~ScoreDesk() = default;

    virtual void DrawNoteArray() = 0;
    virtual void DrawBeatArray() = 0;
    virtual void DrawPolyTableau() = 0;

    /// Gives the focus; runs the control's focus handler if the focus was elsewhere. A disabled or
    /// hidden control does not take it.
    virtual void focusMusicBox() = 0;
    virtual void focusBeatbox() = 0;

    virtual void setBeatboxHeight(int heightPx) = 0;

    /// The lowest value of the horizontal scroll bar.
    [[nodiscard]] virtual int HScroll1Min() = 0;
    /// Moves the bar; a change runs `HScroll1_Change`. A value outside its range does nothing.
    virtual void setHScroll1(int value) = 0;

    /// The main window's own hidden instrument list; a change runs `Combo1_Click`.
    virtual void setMainCombo1(int index) = 0;
    /// The main window's own hidden row options.
    virtual void enableMainTrackSel(int row, bool enabled) = 0;
    virtual void setMainTrackSel(int row, bool selected) = 0;

    /// Selects the sound of a row on the device.
    virtual void ChangeInstrument(int instrument, int row) = 0;

    /// Takes the recording window and the tutorial out of the top-most state, if they are open.
    virtual void leaveTopMost() = 0;
    /// Puts back what `leaveTopMost` took out.
    virtual void returnToTopMost() = 0;
};

} // namespace velorin
