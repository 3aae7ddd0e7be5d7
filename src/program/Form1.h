// The main window: it puts the tableaux, the sounding, the sequencer and the commands together, and
// is what they ask for a window.
#pragma once

#include "bars/WheelTurn.h"
#include "editing/BlockEdits.h"
#include "editing/Duplicate.h"
#include "editing/EditCommands.h"
#include "editing/EditingDesk.h"
#include "playback/NoteSounding.h"
#include "playback/PlaybackDesk.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"
#include "program/MainToolbar.h"
#include "recording/RecordCommands.h"
#include "score/ScoreCommands.h"
#include "score/ScoreFiles.h"
#include "shell/Frmmenu.h"
#include "shell/MenuDesk.h"
#include "shell/SampleFiles.h"
#include "shell/SetupDesk.h"
#include "shell/SkinnedFrame.h"
#include "shell/WindowDrag.h"
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
#include <QWidget>

#include <array>
#include <string>

namespace velorin {

class Program;
class RecordingLink;
struct Key;

/// Layout and forwarding. Every control carries its name as object name, elements of arrays with
/// their index, "Cmd2(6)"; one button serves `Cmd2`(i) and `ImgPic`(i).
class Form1 : public QWidget,
              public PlaybackDesk,
              public TableauDesk,
              public EditingDesk,
              public EditCommands,
              public RecordCommands,
              public MenuDesk,
              public SetupDesk {
    Q_OBJECT

public:
    explicit Form1(Program& program);
    ~Form1() override;

    /// Reads the settings, fills the lists, opens the sound and shows the window, in the one order
    /// of the start; the controls are made by then. Yields, so the program may have ended on
    /// return.
    void Form_Load();
    /// Last sounds off, settings saved, sample files removed.
    void Form_Unload();
    /// Into the nearest screen if no screen shows enough of the title.
    void comeIntoReach();

    // Commands of the window itself.
    void Cmd2_Click(int index) override; ///< button [1, 14] of the main toolbar
    void Cmd2_MouseDown(int index);
    void Cmd2_MouseUp(int index);               ///< button 13 opens its menu
    void Cmd2_MouseMove(int index, int button); ///< `button` is the one held, 0 for none
    void PicX_MouseMove(int button);
    void TopBar_MouseMove(int button);
    /// Shows the hint at the control's place plus the offsets, in pixels of the window; the
    /// control's short tip goes.
    void Getinfo(QWidget& control, const QString& text, int offsetX, int offsetY);
    void ToggleMaximize();
    void imgTitleClose_Click();
    void imgTitleMinimize_Click();
    void imgTitleMaxRestore_Click();
    void imgTitleRestore_Click(); ///< maximises and lays out
    void imgTitleHelp_Click();
    void Resizer_MouseDown(int handle);
    void Resizer_MouseUp(int handle);
    void Combo2_Click();
    void pressEditButton(int button); ///< of the Editing Toolbar, [1, 17], by its keys

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
    unsigned musicDraws() override;
    void GetColumn(int offset) override;
    void PutColumn(int offset) override;
    void drawPlayMarker(int offset) override;
    void enableTableaux(bool enabled) override;
    void enableWizard(bool enabled) override;
    void enableToolbars() override;
    void showProgress(double ratio, const std::string* caption) override;
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
    std::string Combo1Entry(int index) override;
    std::string Combo5Entry(int index) override;

    // EditingDesk
    std::string Text3() override;
    std::string Text4() override;
    std::string Text5() override;
    std::string Form2Text1() override;
    void showHint(const std::string& line) override;

    // EditCommands
    void mNew_Click() override;
    void HideToolbars() override;
    void ShowToolbars() override;
    void mSaveAs_Click() override;
    void PlaySelection() override;
    void InsertColumnBut_Click() override;
    void CopyNotes(int firstRow, int lastRow) override;
    void FunctionBut_Click(int index) override;
    void setText3(const std::string& text) override;
    void setText4(const std::string& text) override;
    void setText5(const std::string& text) override;

    // RecordCommands
    void cmdStop_Click(); ///< clears `RecordingFlag` and stops nothing
    void StopallSound() override;
    void OpenFile(const std::string& name) override;
    void setCheck1(bool checked) override;
    void setChkgraphics(bool checked) override;
    void openMidiOutput(int index) override;
    bool changeToProgramFolder() override;

    // MenuDesk
    void CutBut_Click() override;
    void copyIt() override;
    void PasteIntoBut_Click() override;
    void PasteBut_Click() override;
    void Command33_Click() override;
    void Command34_Click() override;
    void Check3_Click() override; ///< shows the right-click mode on button 4
    void RewindBut_Click() override;
    void PlayAndStop_Click(int index) override;
    void Command32_Click() override;
    void Cmdhelp_Click() override;
    void Command3_Click() override; ///< the exit command
    void Form_Resize() override;
    void showToolbar(const char* name) override;
    void unloadToolbar(const char* name) override;
    bool isBeatboxVisible() override;
    void setBeatboxVisible(bool visible) override;

    // SetupDesk
    void Combo1_Click() override;
    void Combo5_Click() override;
    void Device_Click() override;
    void TrackSel_Click(int row) override;
    void noteActiveToolbar(const char* name) override;
    void addKeys(ToolFrame& window) override;
    FrameState& frames() override;
    void destroyLater(std::unique_ptr<QWidget> window) override;
    void runHandler(const QWidget& window, const std::function<void()>& handler) override;
    void endWithError(const std::string& text) override;

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
    BlockEdits edits;
    Duplicate duplicate;
    SampleFiles samples;
    Frmmenu menus;
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
    QLabel* Image1; ///< the program's picture
    PictureButton* imgTitleHelp;
    PictureButton* imgTitleMinimize;
    PictureButton* imgTitleMaxRestore;
    PictureButton* imgTitleClose;

    // Controls that are never shown: they hold values that procedures read by name.
    QComboBox* Combo1; ///< 128 instruments; what is shown in `Form3` counts
    QComboBox* Combo5; ///< 47 percussion sounds
    QComboBox* Combo2;
    QLineEdit* InstxtBox;
    QLineEdit* Text3Box; ///< notes, as Duplicate reads them
    QLineEdit* Text4Box; ///< repeat
    QLineEdit* Text5Box; ///< beats
    QCheckBox* Check1;   ///< copy of the Recording Toolbar's `Check2`
    QCheckBox* Check3;   ///< while it is set no hints show
    std::array<QRadioButton*, scoreRows> TrackSel;

    RecordingLink* recording = nullptr; ///< null as long as there is no Recording Toolbar

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillScreenYourself();
    void takeToolWindowsAlong();
    bool chooseStripByKey(QEvent& event);
    void makeTitle();
    void makeHiddenControls();
    void addShortcuts(QWidget& window, bool typedToo);
    void pressMainKey(const Key& key);
    void pressEditKey(const Key& key);
    void openMenuByKey(const Key& key);
    void openHelpByKey(const Key& key);
    bool pressTypedKey(const QKeyEvent& event);
    void nameMaxRestore(const char* face);
    void connectToolbar();
    void connectTableaux();
    void connectHandles();
    void stackControls();
    void layOutTitle();
    void readPlace();
    void readViewSettings();
    void setStartView();
    void openSound();
    void showFirst();
    void saveSettings();

    WindowDrag* drag_;
    WheelTurn columnsTurned_;
    WheelTurn linesTurned_;
    QPoint handlePressedAt_;
    bool restoring_ = false; ///< the size from before the maximised state is still to come
    QRect beforeFilling_;    ///< where the window stood before it filled the screen by itself
};

} // namespace velorin
