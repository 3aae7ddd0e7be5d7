// `Form3`, the Setup Toolbar: rows, instruments, chords, tempo, device and volumes. Its controls
// are the live data of playing and editing.
#pragma once

#include "score/Cell.h"
#include "shell/ToolFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabWidget>

#include <array>
#include <string>

namespace velorin {

class NoteSounding;
class RowButton;
class RowCheck;
class SetupDesk;
class SetupToolbar;
struct Studio;

/// Every control carries its name as object name, elements of arrays with their index. A control
/// that changes, by the user or by code, runs its handler once; to set what is set already runs
/// nothing.
class Form3 : public ToolFrame {
    Q_OBJECT

public:
    Form3(SetupToolbar& owner, Studio& studio, NoteSounding& sounding, SetupDesk& desk);

    /// Places the window and fills its lists; opens the device. The window stays hidden.
    void Form_Load();
    /// Saves the settings.
    void Form_Unload();
    void Form_Activate();

    void Combo1_Click();
    void Combo5_Click();
    void Combo2_Click();
    void Combo3_Click();
    void Chkpoly_Click();
    void HScroll1_Change();
    void TempoLabel_Change();
    void HScroll2_Change();
    void TrackSel_Click(int row);
    void TrackSel_MouseDown(int row);
    void TrackSel_MouseMove(int row);
    void TrackHide_Click(int row);
    void imgTitleClose_Click();

    /// What a user's press on an option does: the option is set, then its mouse handler runs, then,
    /// if it was clear before, its click handler.
    void pressTrackSel(int row);
    /// Sets an option as code does: with the others of its group cleared, and the click handler
    /// run.
    void setTrackSel(int row, bool selected);
    void setTrackHidePicture(int row, bool active);
    [[nodiscard]] bool hasTrackHidePicture(int row) const;
    void setTempoLabel(const QString& text);

    QTabWidget* SSTab1 = nullptr;
    // "Channels, Instruments"
    std::array<RowButton*, scoreRows> TrackSel{};
    std::array<QCheckBox*, scoreRows> TrackHide{};
    QComboBox* Combo1 = nullptr; ///< instruments
    QComboBox* Combo5 = nullptr; ///< percussion sounds
    // "Polyphonics"
    QCheckBox* Chkpoly = nullptr;
    QComboBox* Combo3 = nullptr; ///< chords
    std::array<RowCheck*, musicRows> Ch{};
    std::array<QCheckBox*, musicRows> Chkstrum{};
    // "Setup"
    QScrollBar* HScroll1 = nullptr; ///< tempo
    QLabel* TempoLabel = nullptr;
    QComboBox* Combo2 = nullptr;                ///< devices
    QScrollBar* HScroll2 = nullptr;             ///< volume of the selected row
    std::array<QLineEdit*, scoreRows> vol{};    ///< entry 9 is null: that row has no box
    std::array<std::string, scoreRows> volText; ///< what the boxes show

    Flag Form3Loading = flagClear; ///< while it is set the instrument lists' handlers do nothing
    int MidiDeviceCount = 0;
    std::int16_t SavedDevice = 0;

private:
    void makeRowsPage();
    void makeRowOption(QWidget* panel, int row, int place);
    void makePolyphonicsPage();
    void makeSetupPage();
    void makeVolumes(QWidget* page);
    void connectHandlers();
    void checkInGroup(int row); ///< the option, and no other of its group; runs no handler
    void placeWindow();
    void fillInstruments();
    void fillDevices();
    void fillChords();

    SetupToolbar& owner_;
    Studio& studio_;
    NoteSounding& sounding_;
    SetupDesk& desk_;
};

} // namespace velorin
