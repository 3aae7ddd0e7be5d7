// `Record`, the Recording Toolbar: source, record button, player, encoder and their preferences.
//
//   SSTab1                      the tabs
//   Optsourcesng, Optsourcemid  record the score, or the MIDI file in Text6
//   Picture2, Picture7          the panels of the source and the player; disabled while it records
//   rec, Label1                 the record button: its picture and its words
//   Label8, Timer10             the state in a word; the timer that clears "Stopped"
//   Text6                       the file to play or to encode
//   Cmd2(0) to Cmd2(3)          Open, Play, Pause, Stop of the player
//   ImgR(0) to ImgR(3)          their pictures; the same widgets
//   Picture5                    lblKhz, lblbitrate, lblmode, lblTime: shown while an MP3 plays
//   making                      what is recorded, encoded and made; in the place of Picture5
//   picMP3                      the window that an MP3 would draw into; never shown
//   P2, L2, Status              the progress: its track, its bar, its text
//   Command20, Command1         encodes or stops encoding; opens the mixer
//   Check2, Check3, Check4      encode after recording; delete the WAV; show the playing position
//   cbxFormat, Combo4, Combo3   the WAV format, the MP3 bitrate, the MP3 quality
//   InputPath, OutPutPath       the WAV that is encoded, and its MP3
#pragma once

#include "platform/CheckedArray.h"
#include "recording/RecordDesk.h"
#include "windows/frame/PictureButton.h"
#include "windows/frame/ProgressBar.h"
#include "windows/frame/ToolFrame.h"
#include "windows/recording/RecordWidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace velorin {

class MakingPanel;
class RecordingToolbar;
class ToolWindows;
struct Studio;

/// Layout and forwarding only. Every control has its name as object name.
class Record : public ToolFrame {
    Q_OBJECT

public:
    Record(RecordingToolbar& owner, Studio& studio, ToolWindows& windows);

    void Form_Load();   ///< places the window and reads its settings; it stays hidden
    void Form_Unload(); ///< closes the devices and saves the settings
    void Form_Activate();

    void Label1_Click();
    void cbxFormat_Click();
    void imgTitleClose_Click();

    // A button of `Cmd2` shows only while the pointer is on its picture `ImgR`.
    void ImgR_MouseMove(int index);
    void Picture7_MouseMove(); ///< the pointer is on no picture: hides all buttons
    [[nodiscard]] bool isCmd2Visible(int index) const { return index == raised_; }

    QTabWidget* SSTab1 = nullptr;
    // "Record/Play"
    QFrame* Picture2 = nullptr; ///< the source
    QRadioButton* Optsourcesng = nullptr;
    QRadioButton* Optsourcemid = nullptr;
    RecordImage* rec = nullptr;
    LabelButton* Label1 = nullptr; ///< the record button's text
    QLabel* Label8 = nullptr;      ///< the state in a word
    QLineEdit* Text6 = nullptr;    ///< the file to play or to encode
    QFrame* Picture7 = nullptr;    ///< the player's buttons
    platform::CheckedArray<PictureButton*, 4> Cmd2{};
    MakingPanel* making = nullptr;
    QFrame* Picture5 = nullptr; ///< shown while an MP3 plays
    QLabel* lblKhz = nullptr;
    QLabel* lblbitrate = nullptr;
    QLabel* lblmode = nullptr;
    QLabel* lblTime = nullptr;
    ProgressTrack* P2 = nullptr;
    ProgressBar* L2 = nullptr;
    StatusLabel* Status = nullptr;
    QPushButton* Command20 = nullptr; ///< encodes
    QWidget* picMP3 = nullptr;        ///< never shown
    QWidget* Timer10 = nullptr;       ///< never shown; enabled while the timer runs
    // "Preferences"
    QCheckBox* Check2 = nullptr;     ///< encode after recording
    QCheckBox* Check3 = nullptr;     ///< delete the WAV after encoding
    QCheckBox* Check4 = nullptr;     ///< show the playing marker
    QPushButton* Command1 = nullptr; ///< the mixer
    QComboBox* cbxFormat = nullptr;
    QComboBox* Combo4 = nullptr; ///< bitrate
    QComboBox* Combo3 = nullptr; ///< quality
    QLineEdit* InputPath = nullptr;
    QLineEdit* OutPutPath = nullptr;

    /// The label of a caption; null for the caption of `Command20`.
    [[nodiscard]] QLabel* label(RecordCaption control) const;
    [[nodiscard]] QLineEdit& box(RecordText control) const;
    [[nodiscard]] QCheckBox& check(RecordCheck control) const;
    [[nodiscard]] QComboBox& list(RecordList control) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeRecordPage();
    void makeRecordPanel(QWidget* page);
    void makePlayer(QWidget* page);
    void makeMp3Labels(QWidget* page);
    void makeProgress(QWidget* page);
    void makePreferencesPage();
    void makeOptions(QWidget* page);
    void makeFormats(QWidget* page);
    void connectHandlers();
    void placeWindow();
    void fillFormats();
    void readSettings();
    void saveSettings();

    RecordingToolbar& owner_;
    Studio& studio_;
    ToolWindows& windows_;
    int raised_ = -1; ///< the button of `Cmd2` that shows, -1 for none
};

} // namespace velorin
