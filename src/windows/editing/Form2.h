// `Form2`, the Editing Toolbar: the commands on the score as picture buttons, and the numbers that
// they use.
//
//   Cmd2(1) to Cmd2(17)      the buttons, "Clear" to "Duplicate"; numbers in `editButton`
//   ImgPic(1) to ImgPic(17)  their pictures; the same widgets
//   toolbEdit, ToolbCompose  the left and the right strip of buttons
//   Picture2                 the lower half, disabled in draw mode
//   Text1                    the number of spaces to insert
//   Text3, VScroll2          "Notes": the notes that Duplicate makes in all
//   Text4, VScroll4          "Repeat": the columns of one repetition
//   Text5, VScroll3          "Beats": the columns of it that sound
//   Label6(0) to Label6(2)   the words beside these boxes
//   Check1, Check2           whether Duplicate takes the percussion, and the instruments
//   chkgraphics, loopcheck   the values of the buttons 9 and 10; never shown
#pragma once

#include "platform/CheckedArray.h"
#include "windows/frame/PictureButton.h"
#include "windows/frame/ToolFrame.h"
#include "windows/texts/ButtonNumbers.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include <array>
#include <cstdint>

namespace velorin {

class EditingToolbar;
class Session;
class ToolWindows;
struct Studio;

/// Every control has its name as object name. In draw mode the buttons 12 to 17, `Text1` and the
/// lower half are disabled; in select mode everything is enabled.
class Form2 : public ToolFrame {
    Q_OBJECT

public:
    Form2(EditingToolbar& owner, Session& session, ToolWindows& windows);

    void Form_Load();        ///< places the window and reads its settings; it stays hidden
    void Form_QueryUnload(); ///< sets the tableaux back to draw mode
    void Form_Unload();      ///< saves the settings
    void Form_Activate();

    void Cmd2_Click(int index); ///< [1, 17]; any other does nothing

    // A button of `Cmd2` shows only while the pointer is on it; its picture `ImgPic` always shows.
    void Cmd2_MouseUp(int index);     ///< hides the button that was clicked
    void ImgPic_MouseDown(int index); ///< called by its name in transcripts only
    void ImgPic_MouseMove(int index); ///< shows its button, hides those beside it
    void ImgPic_MouseUp(int index);   ///< called by its name in transcripts only
    void Form_MouseMove();            ///< the pointer is on no picture: hides all buttons
    [[nodiscard]] bool isCmd2Visible(int index) const;

    void Text3_Change();
    void Text4_Change();
    void Text5_Change();
    void VScroll2_Change();
    void VScroll3_Change();
    void VScroll4_Change();
    void chkgraphics_Click();
    void loopcheck_Click();
    void imgTitleClose_Click();

    std::int16_t EditToolbarMode = 1; ///< 1 draw mode, 0 select mode

    platform::CheckedArray<PictureButton*, editButton::last + 1> Cmd2{}; ///< index 0 is null
    QFrame* Picture2 = nullptr;                                          ///< the lower half
    QLineEdit* Text1 = nullptr;                                          ///< spaces
    QLineEdit* Text3 = nullptr;                                          ///< notes
    QLineEdit* Text4 = nullptr;                                          ///< repeat
    QLineEdit* Text5 = nullptr;                                          ///< beats, at most repeat
    QScrollBar* VScroll2 = nullptr;                                      ///< notes
    QScrollBar* VScroll3 = nullptr;                                      ///< beats
    QScrollBar* VScroll4 = nullptr;                                      ///< repeat
    std::array<QLabel*, 3> Label6{};
    QCheckBox* Check1 = nullptr;      ///< duplicate percussion
    QCheckBox* Check2 = nullptr;      ///< duplicate instruments
    QCheckBox* chkgraphics = nullptr; ///< never shown
    QCheckBox* loopcheck = nullptr;   ///< never shown

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void makeButtons();
    void makeLowerHalf();
    void connectHandlers();
    void connectButton(int index);
    void placeWindow();
    void showMode();
    void showPosition();
    void showLoop();
    void keepBeatsWithinRepeat();
    void toggleMode();
    void duplicate();

    EditingToolbar& owner_;
    Session& session_;
    Studio& studio_;
    ToolWindows& windows_;
    platform::CheckedArray<bool, editButton::last + 1> raised_{}; ///< the buttons that show
};

} // namespace velorin
