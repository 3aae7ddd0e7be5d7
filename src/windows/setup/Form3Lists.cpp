// The lists of `Form3`: instruments, percussion sounds, devices and chords, and their handlers.
#include "model/InstrumentNames.h"
#include "platform/CheckedArray.h"
#include "platform/MidiOut.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "session/Session.h"
#include "windows/frame/SettingValues.h"
#include "windows/lists/InstrumentList.h"
#include "windows/setup/Form3.h"
#include "windows/setup/SetupToolbar.h"

#include <QSignalBlocker>

namespace velorin {

namespace {

constexpr int deviceNameLength = 32; ///< longest device name, in characters

struct Chord {
    const char* name;
    std::int16_t interval1, interval2, interval3; ///< semitones above the root
};

// Rule: the name of the fifth chord says 5D, but its second note is 3 semitones above the root,
// 5D#. Held by shell/setup_toolbar and the unit test Form3Test.EachChordHasItsIntervals.
constexpr platform::CheckedArray<Chord, 7> chords{{
    {"Major (4 note chord: 5C 5E 5G 6C )", 4, 7, 12},
    {"Minor (4 note chord: 5C 5D#  5G 6C )", 3, 7, 12},
    {"Major 7th (4 note chord: 5C 5E 5G  5B )", 4, 7, 11},
    {"Minor 7th (4 note chord: 5C 5D# 5G 5A# )", 3, 7, 10},
    {"Minor 7th -5 (4 note chord: 5C 5D 5F# 5A# )", 3, 6, 10},
    {"2 Octave combo (2 notes: 5C 4C )", -12, 0, 0},
    {"3 Octave combo (3 notes: 5C 4C 6C )", -12, 12, 0},
}};
constexpr int minorChord = 1;
constexpr int nylonGuitar = 24;

/// Fills a list without running its handler. It then shows no entry.
void fill(QComboBox& list, const QStringList& entries) {
    const QSignalBlocker quiet(list);
    list.clear();
    list.addItems(entries);
    list.setCurrentIndex(-1);
}

} // namespace

void Form3::fillInstruments() {
    QStringList instruments;
    for (int index = 0; index < static_cast<int>(instrumentNames.size()); ++index) {
        instruments.append(QString::fromStdString(instrumentEntry(index)));
    }
    fill(*Combo1, instruments);
    QStringList sounds;
    for (int index = 0; index < static_cast<int>(percussionNames.size()); ++index) {
        sounds.append(QString::fromStdString(percussionEntry(index)));
    }
    fill(*Combo5, sounds);
    Combo5->setCurrentIndex(0);
    Combo1->setCurrentIndex(nylonGuitar);
}

void Form3::fillDevices() {
    platform::MidiOut& midi = studio_.platform.midi;
    MidiDeviceCount = midi.midiOutGetNumDevs();
    QStringList devices{QStringLiteral("MIDI Mapper")};
    for (int device = 0; device < MidiDeviceCount; ++device) {
        devices.append(
            QString::fromStdString(midi.midiOutGetDevCapsA(device)).left(deviceNameLength));
    }
    fill(*Combo2, devices);
    SavedDevice =
        platform::readInt16(studio_.platform.settings.GetSetting(settingsSection, "Devices", "0"))
            .value_or(SavedDevice);
    // Rule: if the list has no such entry, it shows none and no device is opened here. Held by
    // shell/devices_at_start.
    if (SavedDevice + 1 >= 0 && SavedDevice + 1 < Combo2->count()) {
        Combo2->setCurrentIndex(SavedDevice + 1);
    }
}

void Form3::fillChords() {
    QStringList names;
    for (const Chord& chord : chords) {
        names.append(QString::fromLatin1(chord.name));
    }
    fill(*Combo3, names);
    Combo3->setCurrentIndex(minorChord);
}

void Form3::Combo1_Click() {
    if (!Form3Loading.isSet()) {
        sounding_.Combo1_Click();
    }
}

void Form3::Combo5_Click() {
    if (!Form3Loading.isSet()) {
        sounding_.PercussionChoice =
            static_cast<std::int16_t>(Combo5->currentIndex() + firstPercussion);
        sounding_.Combo5_Click();
    }
}

/// In select mode the user takes an instrument for the selected notes, which may have another one
/// than the list shows: so the current entry counts as well.
void Form3::connectTaken(InstrumentList& list, void (Form3::*click)()) {
    connect(&list, &InstrumentList::takenAgain, this, [this, click] {
        if (studio_.run.EditMode == editMode::select)
            (this->*click)();
    });
    connect(&list, &QComboBox::activated, this, [this] { owner_.instrumentTaken(); });
}

void Form3::Combo2_Click() {
    sounding_.Device_Click();
}

void Form3::Combo3_Click() {
    const int index = Combo3->currentIndex();
    if (index < 0 || index >= chords.size()) {
        return;
    }
    const Chord& chord = chords[index];
    sounding_.ChordInterval1 = chord.interval1;
    sounding_.ChordInterval2 = chord.interval2;
    sounding_.ChordInterval3 = chord.interval3;
}

} // namespace velorin
