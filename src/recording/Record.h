// `Record`, the Recording Toolbar: source, record button, player, encoder and their preferences.
#pragma once

#include "recording/RecordDesk.h"
#include "recording/RecordWidgets.h"
#include "shell/PictureButton.h"
#include "shell/ToolFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include <array>

namespace velorin {

class RecordingToolbar;
class ToolDesk;
struct Studio;

/// Layout and forwarding; every control carries its name as object name. One button serves
/// `Cmd2`(i) and `ImgR`(i).
class Record : public ToolFrame {
    Q_OBJECT

public:
    Record(RecordingToolbar& owner, Studio& studio, ToolDesk& desk);

    void Form_Load();   ///< places the window and reads its settings; it stays hidden
    void Form_Unload(); ///< ends what plays or records, and saves the settings
    void Form_Activate();

    void Label1_Click();
    void cbxFormat_Click();
    void imgTitleClose_Click();

    // The faces: a button of `Cmd2` shows only while the pointer is on its picture `ImgR`.
    void ImgR_MouseMove(int index);
    void Picture7_MouseMove(); ///< the pointer is on none of the pictures
    [[nodiscard]] bool isCmd2Visible(int index) const { return index == raised_; }

    QTabWidget* SSTab1 = nullptr;
    // "Record/Play"
    QFrame* Picture2 = nullptr; ///< the source
    QRadioButton* Optsourcesng = nullptr;
    QRadioButton* Optsourcemid = nullptr;
    RecordImage* rec = nullptr;
    LabelButton* Label1 = nullptr; ///< the record button's text
    QLabel* Label8 = nullptr;      ///< the state in a word
    QLineEdit* Text6 = nullptr;    ///< the file in hand
    QFrame* Picture7 = nullptr;    ///< the player's buttons
    std::array<PictureButton*, 4> Cmd2{};
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

    /// The label or button that a caption belongs to: exactly one of them is there.
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
    ToolDesk& desk_;
    int raised_ = -1; ///< the button of `Cmd2` that shows, -1 for none
};

} // namespace velorin
