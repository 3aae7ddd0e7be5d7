// `Form3`, the Setup Toolbar: its load, its end and its handlers.
#include "shell/Form3.h"

#include "controls/ControlTable.h"
#include "controls/DescribedControls.h"
#include "platform/MessageLoop.h"
#include "platform/MidiOut.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "playback/NoteSounding.h"
#include "resources/InstrumentNames.h"
#include "score/Studio.h"
#include "shell/RowButton.h"
#include "shell/SettingValues.h"
#include "shell/SetupDesk.h"
#include "shell/SetupToolbar.h"

#include <QSignalBlocker>

namespace velorin {

namespace {

constexpr ToolFrame::Face face{"Form3", "Setup Toolbar", "main-09-setup.svg", QSize(532, 252)};
constexpr int deviceNameLength = 32; ///< characters of a device's name that its record holds

struct Chord {
    const char* name;
    std::int16_t interval1, interval2, interval3; ///< semitones above the root
};

// The fifth entry's text says 5D for the third semitone; the sound is what counts.
constexpr std::array<Chord, 7> chords{{
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

/// Puts entries into an empty list without showing one of them.
void fill(QComboBox& list, const QStringList& entries) {
    const QSignalBlocker quiet(list);
    list.clear();
    list.addItems(entries);
    list.setCurrentIndex(-1);
}

std::size_t at(int row) {
    return static_cast<std::size_t>(row);
}

} // namespace

Form3::Form3(SetupToolbar& owner, Studio& studio, NoteSounding& sounding, SetupDesk& desk)
    : ToolFrame(face, desk.frames()),
      owner_(owner),
      studio_(studio),
      sounding_(sounding),
      desk_(desk) {
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    SSTab1->setGeometry(8, 34, 516, 210);
    makeRowsPage();
    makePolyphonicsPage();
    makeSetupPage();
    describeControls(*this, face.name);
    connectHandlers();
}

void Form3::connectHandlers() {
    onClose = [this] { imgTitleClose_Click(); };
    onActivate = [this] { Form_Activate(); };
    desk_.addKeys(*this);
    for (int row = 0; row < scoreRows; ++row) {
        TrackSel[at(row)]->onPress = [this, row] { pressTrackSel(row); };
        TrackSel[at(row)]->onMove = [this, row] { TrackSel_MouseMove(row); };
        connect(TrackHide[at(row)], &QCheckBox::toggled, this,
                [this, row] { TrackHide_Click(row); });
    }
    connect(Combo1, &QComboBox::currentIndexChanged, this, &Form3::Combo1_Click);
    connect(Combo5, &QComboBox::currentIndexChanged, this, &Form3::Combo5_Click);
    connect(Combo2, &QComboBox::currentIndexChanged, this, &Form3::Combo2_Click);
    connect(Combo3, &QComboBox::currentIndexChanged, this, &Form3::Combo3_Click);
    connect(Chkpoly, &QCheckBox::toggled, this, &Form3::Chkpoly_Click);
    connect(HScroll1, &QScrollBar::valueChanged, this, &Form3::HScroll1_Change);
    connect(HScroll2, &QScrollBar::valueChanged, this, &Form3::HScroll2_Change);
}

void Form3::Form_Load() {
    placeWindow();
    Form3Loading = flagSet;
    studio_.run.Form3Open = flagSet;
    fillInstruments();
    Form3Loading = flagClear;
    fillDevices();
    sounding_.ChordInterval1 = 3;
    sounding_.ChordInterval2 = 7;
    sounding_.ChordInterval3 = 12;
    fillChords();
    const auto polyphonics = settingBoolean(
        studio_.platform.settings.GetSetting(settingsSection, "Polyphonics", settingText(true)));
    if (polyphonics) {
        Chkpoly->setChecked(*polyphonics);
    }
}

void Form3::placeWindow() {
    const platform::SizePx screen = studio_.platform.desktop.screenSize();
    placeFrom(studio_.platform.settings, "form3", middleTwips(screen.width, width()),
              endTwips(screen.height, height(), 400.0F), studio_.platform.desktop);
    SetTopMost(*this, true);
    frame.SkinToolWindow();
}

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
    // An entry that the list does not have leaves it with none: there is no device to open then.
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

void Form3::Form_Unload() {
    platform::Settings& settings = studio_.platform.settings;
    savePlace(settings, "form3");
    settings.SaveSetting(settingsSection, "Devices", std::to_string(Combo2->currentIndex() - 1));
    settings.SaveSetting(settingsSection, "Form3", settingText(studio_.run.Form3Open != flagClear));
    studio_.run.Form3Open = flagClear;
}

void Form3::Form_Activate() {
    desk_.noteActiveToolbar("Form3");
}

void Form3::Combo1_Click() {
    if (Form3Loading == flagClear) {
        desk_.Combo1_Click();
    }
}

void Form3::Combo5_Click() {
    if (Form3Loading == flagClear) {
        sounding_.PercussionChoice =
            static_cast<std::int16_t>(Combo5->currentIndex() + firstPercussion);
        desk_.Combo5_Click();
    }
}

void Form3::Combo2_Click() {
    desk_.Device_Click();
}

void Form3::Combo3_Click() {
    const int index = Combo3->currentIndex();
    if (index < 0 || index >= static_cast<int>(chords.size())) {
        return;
    }
    const Chord& chord = chords[at(index)];
    sounding_.ChordInterval1 = chord.interval1;
    sounding_.ChordInterval2 = chord.interval2;
    sounding_.ChordInterval3 = chord.interval3;
}

void Form3::Chkpoly_Click() {
    studio_.view.PolyOpen = Chkpoly->isChecked() ? flagSet : flagClear;
    studio_.platform.loop.Yield();
    desk_.Form_Resize();
}

void Form3::HScroll1_Change() {
    setTempoLabel(QString::number(HScroll1->value()));
}

void Form3::setTempoLabel(const QString& text) {
    if (TempoLabel->text() != text) {
        TempoLabel->setText(text);
        TempoLabel_Change();
    }
}

void Form3::TempoLabel_Change() {
    const auto tempo = platform::readInt16(TempoLabel->text().toStdString());
    if (tempo) {
        studio_.score.Tempo = *tempo;
    }
}

void Form3::HScroll2_Change() {
    for (int row = 0; row < scoreRows; ++row) {
        if (!TrackSel[at(row)]->isChecked()) {
            continue;
        }
        if (vol[at(row)] == nullptr) {
            desk_.endWithError("The volume cannot be set: " + std::string(rowName(row)) +
                               " has no volume box.\r\nVelorin will now close.");
        } else {
            vol[at(row)]->setText(QString::number(HScroll2->value()));
        }
        return;
    }
}

void Form3::imgTitleClose_Click() {
    studio_.run.Form3Open = flagClear;
    owner_.unload();
}

} // namespace velorin
