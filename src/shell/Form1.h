// The main window: it puts the tableaux, the sounding, the sequencer and the commands together, and
// is what they ask for a window.
#pragma once

#include "playback/NoteSounding.h"
#include "playback/PlaybackDesk.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"
#include "score/ScoreCommands.h"
#include "score/ScoreFiles.h"
#include "shell/SampleFiles.h"
#include "shell/SkinnedFrame.h"
#include "shell/WindowPlace.h"
#include "tableaux/MainLayout.h"
#include "tableaux/MusicMouse.h"
#include "tableaux/MusicTableau.h"
#include "tableaux/PercussionTableau.h"
#include "tableaux/Picmain.h"
#include "tableaux/PolyTableau.h"
#include "tableaux/TableauDesk.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolButton>
#include <QWidget>

#include <array>
#include <string>

namespace velorin {

class MainToolbar;
class Program;

/// Layout and forwarding. Every control carries its name as object name, elements of arrays with
/// their index, "Cmd2(6)"; one button serves `Cmd2`(i) and `ImgPic`(i).
class Form1 : public QWidget, public PlaybackDesk, public TableauDesk {
    Q_OBJECT

public:
    explicit Form1(Program& program);
    ~Form1() override;

    /// The start of the main window, after its controls are made: steps 1 to 21 of the start.
    void Form_Load();
    /// Last sounds off, settings saved, sample files removed.
    void Form_Unload();

    // Commands of the window itself.
    void Cmd2_Click(int index); ///< button [1, 14] of the main toolbar
    void Cmd2_MouseDown(int index);
    void Cmd2_MouseMove(int index, int button); ///< `button` is the one held, 0 for none
    void PicX_MouseMove();
    void TopBar_MouseMove();
    void Getinfo(QWidget& control, const QString& text, int offsetX, int offsetY);
    void Check3_Click();   ///< shows the right-click mode on button 4
    void Command3_Click(); ///< the exit command
    void Cmdhelp_Click();  ///< opens the help
    void TrackSel_Click(int row);
    void Combo2_Click();
    void Form_Resize();
    void HideToolbars();
    void ShowToolbars();
    void ToggleMaximize();
    void imgTitleClose_Click();
    void imgTitleMinimize_Click();
    void imgTitleMaxRestore_Click();
    void imgTitleRestore_Click();
    void imgTitleHelp_Click();
    void Resizer_MouseDown(int handle);
    void Resizer_MouseUp(int handle);

    // ScoreDesk
    void DrawNoteArray() override;
    void DrawBeatArray() override;
    void DrawPolyTableau() override;
    void focusMusicBox() override;
    void focusBeatbox() override;
    void setBeatboxHeight(int heightPx) override;
    int HScroll1Min() override;
    void setHScroll1(int value) override;
    void setMainCombo1(int index) override;
    void enableMainTrackSel(int row, bool enabled) override;
    void setMainTrackSel(int row, bool selected) override;
    void ChangeInstrument(int instrument, int row) override;
    void leaveTopMost() override;
    void returnToTopMost() override;

    // PlaybackDesk
    void clearMusicBox() override;
    void GetColumn(int offset) override;
    void PutColumn(int offset) override;
    void drawPlayMarker(int offset) override;
    void enableTableaux(bool enabled) override;
    void enableWizard(bool enabled) override;
    void enableToolbars() override;
    void showProgress(float ratio, const std::string* caption) override;
    void endProgress() override;
    void Recordcontrol() override;
    std::string Instxt() override;
    void setInstxt(const std::string& text) override;

    // TableauDesk
    bool isMinimised() override;
    int innerWidth() override;
    int innerHeight() override;
    void placeToolbMenu(int left, int top, int widthPx) override;
    int toolbMenuHeight() override;
    void setPicture2Left(int left) override;
    int picture2Width() override;
    void popupCommand1() override;
    void popupCommand2() override;

private:
    Program& program_;
    Studio& studio_;

public:
    // What the window puts together, in the order in which they build on one another.
    StopWatch watch;
    NoteSounding sounding;
    Sequencer sequencer;
    ScoreCommands commands;
    ScoreFiles files;
    SampleFiles samples;
    SkinnedFrame frame;
    WindowPlace place;
    Picmain* area;
    MusicTableau music;
    PolyTableau poly;
    PercussionTableau percussion;
    MusicMouse musicMouse;
    MainLayout layout;

    MainToolbar* toolbMenu;
    QWidget* Picture2; ///< the word mark
    QLabel* lblTitle;
    QToolButton* imgTitleHelp;
    QToolButton* imgTitleMinimize;
    QToolButton* imgTitleMaxRestore;
    QToolButton* imgTitleClose;

    // Controls that are never shown: they hold values that procedures read by name.
    QComboBox* Combo1; ///< 128 instruments; what is shown in `Form3` counts
    QComboBox* Combo5; ///< 47 percussion sounds
    QComboBox* Combo2;
    QLineEdit* InstxtBox;
    QLineEdit* Text3; ///< notes, as Duplicate reads them
    QLineEdit* Text4; ///< repeat
    QLineEdit* Text5; ///< beats
    QCheckBox* Check3;
    QWidget* Picture11;
    std::array<QRadioButton*, scoreRows> TrackSel;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void makeTitle();
    void makeHiddenControls();
    void connectTableaux();
    void connectScrollBars();
    void layOutTitle();
    void readPlace();
    void readViewSettings();
    void fillInstrumentLists();
    void setStartView();
    void openSound();
    void showFirst();

    QPoint handlePressedAt_;
};

} // namespace velorin
