// `Record`, the Recording Toolbar: load, unload, and forwarding of its clicks.
#include "windows/recording/Record.h"

#include "platform/Desktop.h"
#include "platform/MessageLoop.h"
#include "platform/Settings.h"
#include "platform/SystemFiles.h"
#include "platform/Text.h"
#include "recording/RecordingFormats.h"
#include "studio/Studio.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/SettingValues.h"
#include "windows/frame/ToolWindows.h"
#include "windows/recording/MakingPanel.h"
#include "windows/recording/RecordingToolbar.h"
#include "windows/texts/DescribedControls.h"

#include <QMouseEvent>
#include <QSignalBlocker>

namespace velorin {

namespace {

constexpr ToolFrame::Face face{"Record", "Recording Toolbar", "main-11-recording.svg",
                               QSize(532, 280)};
constexpr char mp3DeviceKey[] = "MPEGVideo";
constexpr char mp3Driver[] = "mciqtz.drv";

// A number other than 0 and 1, or one that the list does not have, changes nothing.
void setCheck(QCheckBox& box, int value) {
    if (value == 0 || value == 1)
        box.setChecked(value == 1);
}

void setList(QComboBox& list, int index) {
    if (index >= -1 && index < list.count())
        list.setCurrentIndex(index);
}

} // namespace

Record::Record(RecordingToolbar& owner, Studio& studio, ToolWindows& windows)
    : ToolFrame(face, windows.frames), owner_(owner), studio_(studio), windows_(windows) {
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    keepFocusOnTabs(*SSTab1);
    SSTab1->setGeometry(8, 34, 516, 238);
    makeRecordPage();
    makePreferencesPage();
    describeControls(*this, face.name);
    connectHandlers();
}

void Record::connectHandlers() {
    onClose = [this] { imgTitleClose_Click(); };
    onActivate = [this] { Form_Activate(); };
    windows_.noteMade(*this);
    for (int i = 0; i < Cmd2.size(); ++i) {
        PictureButton* button = Cmd2[i];
        connect(button, &PictureButton::clicked, this, [this, i] {
            studio_.platform.loop.runHandler(this, [this, i] { owner_.player.Cmd2_Click(i); });
        });
        button->onMouseMove = [this, i](int) { ImgR_MouseMove(i); };
    }
    Picture7->setMouseTracking(true);
    Picture7->installEventFilter(this);
    connect(Label1, &LabelButton::clicked, this, &Record::Label1_Click);
    connect(rec, &RecordImage::clicked, this, [this] { owner_.capture.CmdStart_Click(); });
    for (QAbstractButton* const button : {static_cast<QAbstractButton*>(making->showInFolder),
                                          static_cast<QAbstractButton*>(making->folder)})
        connect(button, &QAbstractButton::clicked, this,
                [this] { studio_.platform.desktop.showInFolder(making->file().string()); });
    connect(making->exports, &QPushButton::clicked, this, [this] {
        if (owner_.onExport)
            owner_.onExport();
    });
    for (QLineEdit* const box : {Text6, InputPath, OutPutPath})
        showPathInTip(*box);
    connect(Command20, &QPushButton::clicked, this, [this] { owner_.encoding.Command20_Click(); });
    connect(Command1, &QPushButton::clicked, this, [this] { owner_.capture.Command1_Click(); });
    connect(Check2, &QCheckBox::toggled, this, [this] { owner_.capture.Check2_Click(); });
    connect(cbxFormat, &QComboBox::currentIndexChanged, this, &Record::cbxFormat_Click);
}

void Record::Form_Load() {
    placeWindow();
    studio_.run.RecordToolbarOpen = flagSet;
    Label1->setText(QStringLiteral("Start Recording"));
    fillFormats();
    if (owner_.media.ReadMCIEntry(mp3DeviceKey) != mp3Driver)
        owner_.media.WriteMCIEntry(mp3DeviceKey, mp3Driver);
    SetTopMost(*this, true);
    owner_.player.makeStopWatches();
    readSettings();
    studio_.run.MixerPath =
        studio_.platform.systemFiles.GetWindowsDirectoryA() + "\\System32\\SndVol32.exe";
    frame.SkinToolWindow();
}

void Record::placeWindow() {
    const platform::SizePx screen = studio_.platform.desktop.screenSize();
    placeFrom(studio_.platform.settings, "record", middleTwips(screen.width, width()),
              endTwips(screen.height, height(), 400.0F), studio_.platform.desktop);
}

// Rule: the selected format is not restored: at every load row 7 is selected, and row 8 is added
// after that. Held by recording/settings and recording/loading.
void Record::fillFormats() {
    const auto add = [this](std::size_t row) {
        const std::string_view text = wavFormats[row].row;
        cbxFormat->addItem(QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())));
    };
    {
        const QSignalBlocker quiet(cbxFormat);
        for (std::size_t row = 0; row <= startWavFormat; ++row)
            add(row);
        cbxFormat->setCurrentIndex(-1);
    }
    cbxFormat->setCurrentIndex(startWavFormat);
    for (std::size_t row = startWavFormat + 1; row < wavFormats.size(); ++row)
        add(row);
}

void Record::readSettings() {
    platform::Settings& settings = studio_.platform.settings;
    const auto read = [&settings](const char* key) {
        return platform::readInt16(settings.GetSetting(settingsSection, key, "1")).value_or(-1);
    };
    setCheck(*Check2, read("autoencode"));
    setCheck(*Check3, read("Delete WAV"));
    setCheck(*Check4, read("Show note position"));
    setList(*Combo4, read("MP3 bitrate"));
    setList(*Combo3, read("MP3 quality"));
}

void Record::Form_Unload() {
    studio_.run.RecordToolbarOpen = flagClear;
    owner_.closeDevices();
    saveSettings();
}

// Rule: `Check2` and `Check3` are saved under one key, so only the second value stays. `Check2` is
// read from another key that nothing writes, so it is set again at every load. Held by
// recording/settings.
void Record::saveSettings() {
    const auto save = [this](const char* key, const std::string& value) {
        studio_.platform.settings.SaveSetting(settingsSection, key, value);
    };
    const auto number = [](const QCheckBox& box) { return box.isChecked() ? "1" : "0"; };
    savePlace(studio_.platform.settings, "record");
    save("Delete WAV", number(*Check2));
    save("Delete WAV", number(*Check3));
    save("Show note position", number(*Check4));
    save("MP3 bitrate", std::to_string(Combo4->currentIndex()));
    save("MP3 quality", std::to_string(Combo3->currentIndex()));
}

void Record::Form_Activate() {
    windows_.noteActive(Tool::recording);
}

void Record::Label1_Click() {
    owner_.capture.Cmdrecord_Click();
}

void Record::cbxFormat_Click() {
    studio_.platform.settings.SaveSetting(settingsSection, "WAV format",
                                          std::to_string(cbxFormat->currentIndex()));
}

void Record::imgTitleClose_Click() {
    owner_.unload();
}

void Record::ImgR_MouseMove(int index) {
    raised_ = index;
}

void Record::Picture7_MouseMove() {
    raised_ = -1;
}

// The panel also gets the moves over its buttons.
bool Record::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Picture7 && event->type() == QEvent::Leave)
        Picture7_MouseMove();
    if (watched == Picture7 && event->type() == QEvent::MouseMove) {
        const auto* move = static_cast<QMouseEvent*>(event);
        if (Picture7->childAt(move->position().toPoint()) == nullptr)
            Picture7_MouseMove();
    }
    return ToolFrame::eventFilter(watched, event);
}

QLabel* Record::label(RecordCaption control) const {
    switch (control) {
    case RecordCaption::Label1:
        return Label1;
    case RecordCaption::Label8:
        return Label8;
    case RecordCaption::Status:
        return Status;
    case RecordCaption::lblKhz:
        return lblKhz;
    case RecordCaption::lblbitrate:
        return lblbitrate;
    case RecordCaption::lblmode:
        return lblmode;
    case RecordCaption::lblTime:
        return lblTime;
    case RecordCaption::Command20:
        break;
    }
    return nullptr;
}

QLineEdit& Record::box(RecordText control) const {
    return control == RecordText::Text6       ? *Text6
           : control == RecordText::InputPath ? *InputPath
                                              : *OutPutPath;
}

QCheckBox& Record::check(RecordCheck control) const {
    return control == RecordCheck::Check2   ? *Check2
           : control == RecordCheck::Check3 ? *Check3
                                            : *Check4;
}

QComboBox& Record::list(RecordList control) const {
    return control == RecordList::cbxFormat ? *cbxFormat
           : control == RecordList::Combo4  ? *Combo4
                                            : *Combo3;
}

} // namespace velorin
