// `Form3`, the Setup Toolbar: load, unload and handlers. The lists are in Form3Lists.cpp.
#include "windows/setup/Form3.h"

#include "platform/MessageLoop.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "session/Session.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/RowButton.h"
#include "windows/frame/SettingValues.h"
#include "windows/frame/ToolWindows.h"
#include "windows/setup/SetupToolbar.h"
#include "windows/texts/ControlTable.h"
#include "windows/texts/DescribedControls.h"

namespace velorin {

namespace {

constexpr ToolFrame::Face face{"Form3", "Setup Toolbar", "main-09-setup.svg", QSize(532, 252)};
} // namespace

Form3::Form3(SetupToolbar& owner, Session& session, ToolWindows& windows)
    : ToolFrame(face, windows.frames),
      owner_(owner),
      session_(session),
      studio_(session.studio),
      sounding_(session.sounding),
      windows_(windows),
      values_(&session.studio.setup.values) {
    *values_ = {.instrument = -1, .percussion = -1, .device = -1};
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    keepFocusOnTabs(*SSTab1);
    SSTab1->setGeometry(8, 34, 516, 210);
    makeRowsPage();
    makePolyphonicsPage();
    makeSetupPage();
    describeControls(*this, face.name);
    connectValues();
    connectHandlers();
}

/// Writes the values of the controls to the session before their handlers run.
void Form3::connectValues() {
    for (int row = 0; row < scoreRows; ++row) {
        connect(TrackSel[row], &QAbstractButton::toggled, this,
                [this, row](bool set) { values_->selected[row] = set; });
        connect(TrackHide[row], &QCheckBox::toggled, this,
                [this, row](bool set) { values_->options.rows[row].hidden = set; });
        if (vol[row] != nullptr)
            connect(vol[row], &QLineEdit::textChanged, this, [this, row](const QString& text) {
                values_->options.rows[row].volume = text.toStdString();
            });
    }
    for (int row = 0; row < musicRows; ++row) {
        connect(Ch[row], &QAbstractButton::toggled, this,
                [this, row](bool set) { values_->options.rows[row].chord = set; });
        connect(Chkstrum[row], &QCheckBox::toggled, this,
                [this, row](bool set) { values_->options.rows[row].strummed = set; });
    }
    connect(Combo1, &QComboBox::currentIndexChanged, this,
            [this](int index) { values_->instrument = index; });
    connect(Combo5, &QComboBox::currentIndexChanged, this,
            [this](int index) { values_->percussion = index; });
    connect(Combo2, &QComboBox::currentIndexChanged, this,
            [this](int index) { values_->device = index; });
}

void Form3::connectHandlers() {
    onClose = [this] { imgTitleClose_Click(); };
    onActivate = [this] { Form_Activate(); };
    windows_.noteMade(*this);
    for (int row = 0; row < scoreRows; ++row) {
        TrackSel[row]->onPress = [this, row] { pressTrackSel(row); };
        TrackSel[row]->onMove = [this, row] { TrackSel_MouseMove(row); };
        connect(TrackHide[row], &QCheckBox::toggled, this, [this, row] { TrackHide_Click(row); });
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

// Rule: the setting "Form3" is the open flag at the unload: True after the exit command, False
// after the toolbar's own close button. Held by shell/ending and shell/settings.
void Form3::Form_Unload() {
    platform::Settings& settings = studio_.platform.settings;
    savePlace(settings, "form3");
    settings.SaveSetting(settingsSection, "Devices", std::to_string(Combo2->currentIndex() - 1));
    settings.SaveSetting(settingsSection, "Form3", settingText(studio_.run.Form3Open.isSet()));
    studio_.run.Form3Open = flagClear;
}

void Form3::Form_Activate() {
    windows_.noteActive(Tool::setup);
}

void Form3::Chkpoly_Click() {
    studio_.view.PolyOpen = toFlag(Chkpoly->isChecked());
    studio_.platform.loop.Yield();
    studio_.desk->Form_Resize();
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

// Rule: row 9 has no volume box, so moving the bar while it is selected ends the run with an error.
// Held by shell/no_volume_box. With no row selected the bar moves nothing. Held by shell/volumes.
void Form3::HScroll2_Change() {
    for (int row = 0; row < scoreRows; ++row) {
        if (!TrackSel[row]->isChecked()) {
            continue;
        }
        if (vol[row] == nullptr) {
            studio_.desk->endWithError("The volume cannot be set: " + std::string(rowName(row)) +
                                       " has no volume box.\r\nVelorin will now close.");
        } else {
            vol[row]->setText(QString::number(HScroll2->value()));
        }
        return;
    }
}

// Rule: the selected row gets the instrument that its list shows; the list does not change to the
// row's instrument. Held by shell/setup_toolbar.
void Form3::TrackSel_Click(int row) {
    session_.TrackSel_Click(row);
    if (isMusicRow(row)) {
        Combo1_Click();
    } else {
        Combo5_Click();
    }
    for (QCheckBox* box : TrackHide) {
        box->setEnabled(true);
    }
    TrackHide[row]->setEnabled(false);
    if (row < studio_.view.RowOpen.size()) {
        studio_.view.RowOpen[row] = toFlag(TrackSel[row]->isChecked());
    }
}

// Rule: this clears the other options of both groups and does not set its own. Held by
// shell/row_options.
void Form3::TrackSel_MouseDown(int row) {
    for (int other = 0; other < scoreRows; ++other) {
        if (other != row) {
            TrackSel[other]->setChecked(false);
        }
        setTrackHidePicture(other, false);
    }
    setTrackHidePicture(row, TrackSel[row]->isChecked());
}

// Rule: the tool tip numbers all percussion rows from 1, row 9 included, so row 10 is "Percussion
// Channel 3" here and 2 elsewhere. Held by shell/row_options.
void Form3::TrackSel_MouseMove(int row) {
    QString tip = row < musicRows
                      ? QString::fromLatin1(channelTip).arg(row + 1)
                      : QString::fromLatin1(percussionChannelTip).arg(row - firstPercussionRow + 1);
    if (TrackSel[row]->isChecked()) {
        tip += QLatin1String(activeTip);
    }
    TrackSel[row]->setToolTip(tip);
}

void Form3::TrackHide_Click(int row) {
    const bool hidden = TrackHide[row]->isChecked();
    TrackSel[row]->setEnabled(!hidden);
    TrackHide[row]->setProperty("backColor", QColor(hidden ? Qt::black : Qt::white));
    if (hidden) {
        setTrackHidePicture(row, false);
    }
    studio_.desk->DrawNoteArray();
}

void Form3::checkInGroup(int row) {
    for (int other = 0; other < scoreRows; ++other) {
        if (isMusicRow(other) == isMusicRow(row)) {
            TrackSel[other]->setChecked(other == row);
        }
    }
}

void Form3::pressTrackSel(int row) {
    const bool wasSet = TrackSel[row]->isChecked();
    checkInGroup(row);
    TrackSel_MouseDown(row);
    if (!wasSet) {
        TrackSel_Click(row);
    }
}

void Form3::setTrackSel(int row, bool selected) {
    if (TrackSel[row]->isChecked() == selected) {
        return;
    }
    if (!selected) {
        TrackSel[row]->setChecked(false);
        return;
    }
    checkInGroup(row);
    TrackSel_Click(row);
}

void Form3::setTrackHidePicture(int row, bool active) {
    setStyled(*TrackHide[row], "active", active);
}

bool Form3::hasTrackHidePicture(int row) const {
    return TrackHide[row]->property("active").toBool();
}

void Form3::imgTitleClose_Click() {
    studio_.run.Form3Open = flagClear;
    owner_.unload();
}

} // namespace velorin
