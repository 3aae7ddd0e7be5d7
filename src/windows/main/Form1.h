// `Form1`, the main window: the tableaux, the toolbar and the title around them, and its keys.
//
//   Cmd2(1) to Cmd2(14)      the toolbar's buttons, "Clear" to "Exit"; numbers in `mainButton`
//   ImgPic(1) to ImgPic(14)  their pictures; the same widgets
//   toolbMenu, Picture2      the strip with these buttons; the word mark
//   Image1, lblTitle         the program's picture and its name in the title bar
//   Combo1, Combo5, Combo2   instruments, percussion sounds, MIDI devices; never shown
//   TrackSel(0) to (12)      the current row; never shown
//   Text3, Text4, Text5      Duplicate's notes, repeat and beats; never shown
//   Instxt                   the instrument number; never shown
//   Check1, Check3           the copy of `Record.Check2`; no hints while set; never shown
#pragma once

#include "model/RowArray.h"
#include "windows/frame/SkinnedFrame.h"
#include "windows/frame/WheelTurn.h"
#include "windows/frame/WindowDrag.h"
#include "windows/frame/WindowPlace.h"
#include "windows/main/Frmmenu.h"
#include "windows/main/MainLayout.h"
#include "windows/main/MainToolbar.h"
#include "windows/main/MainWindowDesk.h"
#include "windows/main/MusicMouse.h"
#include "windows/main/MusicTableau.h"
#include "windows/main/PercussionTableau.h"
#include "windows/main/Picmain.h"
#include "windows/main/PolyTableau.h"
#include "windows/main/TableauDesk.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velorin {

class EditingToolbar;
class Pen;
class RecordingToolbar;
class PressWatch;
class SampleFiles;
class Session;
class StateWatch;
class StripTools;
class TitleLabel;
class ToolFrame;
class ToolWindows;
class frminfo;
enum class FileCommand;
enum class HearingCommand;
enum class HistoryCommand;
enum class StripCommand;
enum class Tableau;
struct Key;
struct KeyboardKey;
struct Studio;

/// The parts that the main window uses. All must outlive it.
struct MainWindowParts {
    Session& session;
    ToolWindows& windows;
    EditingToolbar& editing;
    RecordingToolbar& recording;
    frminfo& hints;
    SampleFiles& samples;
};

/// Controls and their events. The session's parts and the tableaux do the work. Every control has
/// its name as object name, elements of arrays with their index: "Cmd2(6)".
class Form1 : public QWidget, public TableauDesk {
    Q_OBJECT

public:
    explicit Form1(const MainWindowParts& parts);
    ~Form1() override;

    std::function<void()> onExit;                         ///< the exit command
    std::function<void(const std::string& text)> onError; ///< an error that ends the run
    std::function<void()> onReady;                        ///< the window is about to be shown
    std::function<void(FileCommand)> onFileKey;
    /// Files were dropped on the window: their paths, in UTF-8.
    std::function<void(const std::vector<std::string>& paths)> onDrop;
    /// True if `onDrop` can use a file of that name. Without it nothing can be dropped.
    std::function<bool(const std::string& path)> canDrop;
    std::function<void(HistoryCommand)> onHistoryKey;
    std::function<void(const KeyboardKey&)> onKeyboardKey;
    std::function<void(HearingCommand)> onHearingKey;
    std::function<void()> onLockChanged; ///< the tableaux were locked or released
    // Before the handler of a press on a tableau or on the bar numbers, and after that of a release
    // on a tableau. May be empty.
    std::function<void()> onTableauPress;
    std::function<void()> onTableauRelease;

    /// Reads the settings, fills the lists, opens the MIDI device and shows the window, in this
    /// order. The controls exist already. Yields, so the program may have ended when it returns.
    void Form_Load();
    /// Silences the last notes, saves the settings and removes the sample files.
    void Form_Unload();
    /// Moves the window into the nearest screen if no screen shows enough of its title.
    void comeIntoReach();
    /// Shows the name and the mark in the native and in the drawn title. `file` is the path of the
    /// score, empty for none.
    void showTitle(const std::string& file, bool isUnsaved);

    // The toolbar with its buttons [1, 14], and the hints of the work area.
    void Cmd2_Click(int index);
    void Cmd2_MouseDown(int index);
    void Cmd2_MouseUp(int index);               ///< the help button opens its menu
    void Cmd2_MouseMove(int index, int button); ///< `button` is the one held, 0 for none
    void PicX_MouseMove(int button);
    void TopBar_MouseMove(int button);
    /// Shows the long hint at the control's place plus the offsets, in pixels.
    ///
    /// Rule: this removes the control's tool tip; the tip of the button's picture stays. Held by
    /// shell/hint_window.
    void Getinfo(QWidget& control, const QString& text, int offsetX, int offsetY);
    void Check3_Click();   ///< shows the right-click mode on the toolbar
    void Cmdhelp_Click();  ///< opens the help
    void Command3_Click(); ///< the exit command
    void cmdStop_Click();  ///< clears `RecordingFlag` and stops nothing. Called by its name in
                           ///< transcripts only.

    // The title and the frame.
    void ToggleMaximize();
    void imgTitleClose_Click();
    void imgTitleMinimize_Click();
    void imgTitleMaxRestore_Click();
    void imgTitleRestore_Click(); ///< maximises. Called by its name in transcripts only.
    void imgTitleHelp_Click();
    void Resizer_MouseDown(int handle);
    void Resizer_MouseUp(int handle);

    void pressEditButton(int button); ///< of the Editing Toolbar, [1, 17], by its keys

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

    Session& session;
    frminfo& hints;

private:
    Studio& studio_;
    ToolWindows& windows_;
    EditingToolbar& editing_;
    SampleFiles& samples_;

public:
    MainWindowDesk desk;
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
    TitleLabel* lblTitle;
    StripTools* strip; ///< the free part of `toolbMenu`
    StateWatch* state; ///< fills the line of state in the strip
    QLabel* Image1;    ///< the program's picture
    PictureButton* imgTitleHelp;
    PictureButton* imgTitleMinimize;
    PictureButton* imgTitleMaxRestore;
    PictureButton* imgTitleClose;

    // Controls that are never shown. They hold values that procedures use.
    //
    // Rule: a value that is set in them runs their handlers, as if the user had set it. Held by
    // shell/hidden_controls.
    QComboBox* Combo1; ///< 128 instruments; the list in `Form3` decides
    QComboBox* Combo5; ///< 47 percussion sounds
    QComboBox* Combo2;
    QLineEdit* Instxt;
    QLineEdit* Text3;  ///< notes that Duplicate makes
    QLineEdit* Text4;  ///< repeat
    QLineEdit* Text5;  ///< beats
    QCheckBox* Check1; ///< copy of the Recording Toolbar's `Check2`
    QCheckBox* Check3; ///< while it is set no hints show
    RowArray<QRadioButton*> TrackSel;

    std::unique_ptr<Pen> pen; ///< draws in the tableaux by keyboard

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
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeTitle();
    void makeHiddenControls();
    void connectHiddenControls();
    void connectToolbar();
    void connectPen();
    void connectTableaux();
    void connectStrip();
    void layOutStrip();
    void runStripCommand(StripCommand command);
    void runCutButton(int index);
    void pressTableau(Tableau where, int button, double x, double y,
                      const std::function<void()>& handler);
    void releaseTableau(int button, const std::function<void()>& handler);
    void sayLocked(const QWidget& control);
    void showStripHint(PictureButton& button, int held);
    void stackControls();
    void layOutTitle();

    void fillScreenYourself();
    void nameMaxRestore(const char* face);
    void showOrHideToolWindows();
    bool chooseStripByKey(QEvent& event);

    void addKeys(ToolFrame& window);
    void addShortcuts(QWidget& window, bool typedToo);
    void pressMainKey(const Key& key);
    void pressEditKey(const Key& key);
    void runFileCommand(FileCommand command);
    void runKeyboardCommand(const KeyboardKey& key);
    void runHearingCommand(HearingCommand command);
    void pressHistoryKey(QWidget& window, HistoryCommand command);
    void openMenuByKey(const Key& key);
    void openHelpByKey(const Key& key);
    bool pressTypedKey(const QKeyEvent& event);
    void openDropped(const std::vector<std::string>& paths, int afterMs);

    void readPlace();
    void readViewSettings();
    void setStartView();
    void openSound();
    void showFirst();
    void saveSettings();

    WindowDrag* drag_;
    std::unique_ptr<PressWatch> presses_;
    int pressedColumn_ = 0; ///< of the press on a tableau, on the screen
    WheelTurn columnsTurned_;
    WheelTurn linesTurned_;
    QPoint handlePressedAt_;
    bool restoring_ = false; ///< the size from before the maximised state has not come yet
    QRect beforeFilling_;    ///< the rectangle before `fillScreenYourself`
};

} // namespace velorin
