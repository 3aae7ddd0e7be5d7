// What the lessons do to windows: controls and handlers, each under its name.
#pragma once

#include <string>

namespace velorin {

/// The first use of a window loads it. Setting a control runs its handler if the value changes, as
/// for the user. An index that does not exist does nothing.
class WizardDesk {
public:
    virtual ~WizardDesk() = default;

    // Form1. Button 1 left, 2 right; pixels of the tableau.
    virtual void MusicBox_MouseDown(int button, int shift, double x, double y) = 0;
    virtual void MusicBox_MouseMove(int button, int shift, double x, double y) = 0;
    virtual void MusicBox_MouseUp(int button, int shift, double x, double y) = 0;

    // Form3
    virtual void setForm3Tab(int index) = 0; ///< one of `SetupTab`
    /// `Combo1` and `Combo5`: the click handler runs once, whether or not the entry changes.
    virtual void chooseInstrument(int index) = 0;
    virtual void choosePercussion(int index) = 0;
    virtual void setCombo3(int index) = 0; ///< chord

    // Form2
    virtual void showForm2() = 0;
    virtual void bringForm2ToFront() = 0;                    ///< a hidden one stays hidden
    virtual void toggleEditMode() = 0;                       ///< the handler of its mode button
    virtual void setForm2Text1(const std::string& text) = 0; ///< spaces
    virtual void setForm2Text3(const std::string& text) = 0; ///< notes
    virtual void setForm2Text4(const std::string& text) = 0; ///< repeat
    virtual void setForm2Text5(const std::string& text) = 0; ///< beats

    // Record
    virtual void showRecord() = 0;
    virtual void setRecordTab(int index) = 0;   ///< one of `RecordTab`
    virtual void setRecordCheck2(bool set) = 0; ///< encode after a recording
    virtual void setRecordCheck3(bool set) = 0; ///< delete the WAV file
    virtual void setRecordCheck4(bool set) = 0; ///< show the note position
    virtual void setRecordText6(const std::string& text) = 0;
    virtual void setOptsourcesng() = 0;
    virtual void setOptsourcemid() = 0;
    virtual void Cmdrecord_Click() = 0;
    virtual void C4_Click() = 0;
    virtual void Record_Command4_Click(int index) = 0; ///< the player: 1 plays

    // The wizard's own window and the pointer
    virtual void leaveTopMost() = 0;
    virtual void returnToTopMost() = 0;
    virtual void showHourglass(bool shown) = 0; ///< calls nest
};

/// The tabs of `Form3`.
namespace SetupTab {
constexpr int channels = 0; ///< "Channels, Instruments"
constexpr int polyphonics = 1;
constexpr int setup = 2;
} // namespace SetupTab

/// The tabs of `Record`.
namespace RecordTab {
constexpr int recordPlay = 0;
constexpr int preferences = 1;
} // namespace RecordTab

} // namespace velorin
