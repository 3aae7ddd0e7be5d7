// `Form2`, the Editing Toolbar: the commands on the score as picture buttons, and the numbers that
// they read.
#pragma once

#include "shell/PictureButton.h"
#include "shell/ToolFrame.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include <array>
#include <bitset>
#include <cstdint>

namespace velorin {

class EditCommands;
class EditingToolbar;
class ToolDesk;
struct Studio;

constexpr int editButtons = 17; ///< number of the last button; they count from 1

/// Every control carries its name as object name. It has two modes: in draw mode the buttons 12..17
/// and the lower half are dead, in select mode all is alive. One button serves `Cmd2`(i) and
/// `ImgPic`(i).
class Form2 : public ToolFrame {
    Q_OBJECT

public:
    Form2(EditingToolbar& owner, Studio& studio, EditCommands& commands, ToolDesk& desk);

    void Form_Load();        ///< places the window and reads its settings; it stays hidden
    void Form_QueryUnload(); ///< the tableaux go back to drawing
    void Form_Unload();      ///< saves the settings
    void Form_Activate();

    void Cmd2_Click(int index); ///< [1, 17]; any other does nothing

    // The faces: a button of `Cmd2` shows only while the pointer is on it, its picture `ImgPic`
    // always.
    void Cmd2_MouseUp(int index); ///< the button that has taken the click goes
    void ImgPic_MouseDown(int index);
    void ImgPic_MouseMove(int index); ///< its button comes, those beside it go
    void ImgPic_MouseUp(int index);
    void Form_MouseMove(); ///< the pointer is on none of the pictures: all buttons go
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

    std::int16_t EditToolbarMode = 1; ///< 1 draws, 0 selects

    std::array<PictureButton*, editButtons + 1> Cmd2{}; ///< index 0 is null
    QFrame* Picture2 = nullptr;                         ///< the lower half
    QLineEdit* Text1 = nullptr;                         ///< spaces
    QLineEdit* Text3 = nullptr;                         ///< notes
    QLineEdit* Text4 = nullptr;                         ///< repeat
    QLineEdit* Text5 = nullptr;                         ///< beats, at most repeat
    QScrollBar* VScroll2 = nullptr;                     ///< notes
    QScrollBar* VScroll3 = nullptr;                     ///< beats
    QScrollBar* VScroll4 = nullptr;                     ///< repeat
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
    Studio& studio_;
    EditCommands& commands_;
    ToolDesk& desk_;
    std::bitset<editButtons + 1> raised_; ///< the buttons that show
};

} // namespace velorin
