// `Form3`, the Setup Toolbar: rows, instruments, chords, tempo, device and volumes. Playing and
// editing use the values of its controls.
//
//   SSTab1                     the tabs
//   TrackSel(r), TrackHide(r)  make row r the current one; hide row r
//   Combo1, Combo5             the lists of instruments and of percussion sounds
//   Combo2, Combo3             the lists of MIDI devices and of chords
//   Chkpoly                    shows the polyphonics tableau
//   Ch(r), Chkstrum(r)         row r sounds as chords; its chords are strummed
//   HScroll1, TempoLabel       the tempo
//   HScroll2, vol(r)           the volume of the current row, and of row r
#pragma once

#include "studio/Setup.h"
#include "windows/frame/ToolFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabWidget>

#include <array>
#include <string>

namespace velorin {

class InstrumentList;
class NoteSounding;
class RowButton;
class RowCheck;
class Session;
class SetupToolbar;
class ToolWindows;
struct Studio;

/// Every control has its name as object name, elements of arrays with their index. A control that
/// changes, by the user or by code, runs its handler once. Setting the value that it has already
/// runs nothing.
class Form3 : public ToolFrame {
    Q_OBJECT

public:
    Form3(SetupToolbar& owner, Session& session, ToolWindows& windows);

    /// Places the window, fills its lists and opens the device. The window stays hidden.
    void Form_Load();
    /// Saves the settings.
    void Form_Unload();
    void Form_Activate();

    /// Called when the window is unloaded: a handler that is still running then changes no value of
    /// the session.
    void detachValues() { values_ = &own_; }

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

    /// A press by the user: sets the option and runs its mouse handler.
    ///
    /// Rule: the click handler runs only if the option was clear before. Held by shell/row_options.
    void pressTrackSel(int row);
    /// Sets an option from code: clears the others of its group and runs the click handler.
    void setTrackSel(int row, bool selected);
    void setTrackHidePicture(int row, bool active);
    [[nodiscard]] bool hasTrackHidePicture(int row) const;
    void setTempoLabel(const QString& text);

    QTabWidget* SSTab1 = nullptr;
    // "Channels, Instruments"
    RowArray<RowButton*> TrackSel{};
    RowArray<QCheckBox*> TrackHide{};
    QComboBox* Combo1 = nullptr; ///< instruments
    QComboBox* Combo5 = nullptr; ///< percussion sounds
    // "Polyphonics"
    QCheckBox* Chkpoly = nullptr;
    QComboBox* Combo3 = nullptr; ///< chords
    RowArray<RowCheck*, musicRows> Ch{};
    RowArray<QCheckBox*, musicRows> Chkstrum{};
    // "Setup"
    QScrollBar* HScroll1 = nullptr; ///< tempo
    QLabel* TempoLabel = nullptr;
    QComboBox* Combo2 = nullptr;    ///< devices
    QScrollBar* HScroll2 = nullptr; ///< volume of the selected row
    RowArray<QLineEdit*> vol{};     ///< entry 9 is null: that row has no box

    Flag Form3Loading = flagClear; ///< while set, the handlers of the instrument lists do nothing
    int MidiDeviceCount = 0;
    std::int16_t SavedDevice = 0;

private:
    void makeRowsPage();
    void makeRowOption(QWidget* panel, int row, int place);
    void connectTaken(InstrumentList& list, void (Form3::*click)());
    void makePolyphonicsPage();
    void makeSetupPage();
    void makeVolumes(QWidget* page);
    void connectValues();
    void connectHandlers();
    void checkInGroup(int row); ///< sets the option and clears its group; runs no handler
    void placeWindow();
    void fillInstruments();
    void fillDevices();
    void fillChords();

    SetupToolbar& owner_;
    Session& session_;
    Studio& studio_;
    NoteSounding& sounding_;
    ToolWindows& windows_;
    SetupValues* values_; ///< the session's; `own_` after the unload
    SetupValues own_;
};

} // namespace velorin
