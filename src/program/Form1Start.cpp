// The main window's start and end: what is read, set and sent, in the one order, and what is saved.
#include "platform/CaseBlind.h"
#include "platform/Desktop.h"
#include "platform/Files.h"
#include "platform/MessageLoop.h"
#include "platform/Settings.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "resources/InstrumentNames.h"
#include "score/SetupControls.h"
#include "score/Studio.h"
#include "shell/SettingValues.h"

#include <QDir>
#include <QSignalBlocker>

#include <algorithm>

namespace velorin {

namespace {

constexpr float startLeft = 100.0F; // twips
constexpr float startTop = 200.0F;
constexpr int titleHeight = 25; // pixels
constexpr int titleButtonsWidth = 124;
constexpr int startInstrument = 24; // "Nylon Guitar"

/// A list is filled without a word to its handler, and shows no entry then.
void fill(QComboBox& list, int entries, std::string (*entry)(int)) {
    const QSignalBlocker quiet(list);
    list.clear();
    for (int i = 0; i < entries; ++i)
        list.addItem(QString::fromStdString(entry(i)));
    list.setCurrentIndex(-1);
}

bool readFlag(platform::Settings& settings, const char* key, bool present) {
    return settingBoolean(settings.GetSetting(settingsSection, key, "True")).value_or(present);
}

Flag toFlag(bool set) {
    return set ? flagSet : flagClear;
}

} // namespace

void Form1::Form_Load() {
    Run& run = studio_.run;
    QDir::setCurrent(QString::fromStdString(studio_.platform.programFolder));
    run.LoadingMain = flagSet;
    readPlace();
    readViewSettings();
    run.SongsFolder = studio_.platform.programFolder + platform::shownPath("\\Songs");
    studio_.platform.files.createFolder(run.SongsFolder);
    sounding.SoundRow = 0;
    sounding.Velocity = 127;
    studio_.score.ClearNoteArrays();
    fill(*Combo1, static_cast<int>(instrumentNames.size()), instrumentEntry);
    fill(*Combo5, static_cast<int>(percussionNames.size()), percussionEntry);
    {
        const QSignalBlocker quiet(Combo5);
        Combo5->setCurrentIndex(0);
    }
    sounding.Command9_Click();
    TrackSel_Click(0); // the first draw reads the Setup Toolbar's boxes, which loads that window
    setStartView();
    music.DrawNoteNames();
    area->Beatbox->place(area->MusicBox->x(), area->Beatbox->y(), area->MusicBox->width(),
                         area->Beatbox->height());
    run.ShowNotePosition = flagSet;
    sequencer.PlayTimer = watch.StopWatchNew();
    frame.SkinMainWindow(flagSet);
    openSound();
    studio_.score.ClearPolies();
    DrawPolyTableau();
    studio_.view.RowOpen[0] = flagSet;
    studio_.view.RowOpen[1] = flagSet;
    showFirst();
}

void Form1::readPlace() {
    platform::Settings& settings = studio_.platform.settings;
    const platform::SizePx screen = studio_.platform.desktop.screenSize();
    const auto read = [&settings](const char* key, float fallback) {
        return settingTwips(settings.GetSetting(settingsSection, key, settingText(fallback)))
            .value_or(fallback);
    };
    const float fullWidth = static_cast<float>(screen.width * platform::twipsPerPixel) - 200.0F;
    const float fullHeight = static_cast<float>(screen.height * platform::twipsPerPixel) - 400.0F;
    float left = read("form1 left", startLeft);
    float top = read("form1 top", startTop);
    float width = read("form1 width", fullWidth);
    float height = read("form1 Height", fullHeight);
    // Damage in the store never leaves a window that cannot be seen or taken hold of.
    if (width < minimumWidthPx * platform::twipsPerPixel || width > largestTwips)
        width = fullWidth;
    if (height < minimumHeightPx * platform::twipsPerPixel || height > largestTwips)
        height = fullHeight;
    if (!isPlaceOfADesktop(left, top)) {
        left = startLeft;
        top = startTop;
    }
    place.moveTo(left, top);
    place.resizeTo(width, height);
    comeIntoReach();
}

/// The title up to its buttons, as far as the window is wide enough to have one.
void Form1::comeIntoReach() {
    const int wide = std::max(gripWidthPx, width() - titleButtonsWidth);
    place.comeIntoReach({0, 0, wide, titleHeight}, studio_.platform.desktop.screens());
}

void Form1::readViewSettings() {
    platform::Settings& settings = studio_.platform.settings;
    studio_.run.ShowNotePosition = toFlag(readFlag(settings, "Playing position", true));
    area->Beatbox->setVisible(readFlag(settings, "Percussion", true));
    studio_.view.PolyOpen = toFlag(readFlag(settings, "Polyphonics", true));
}

void Form1::setStartView() {
    View& view = studio_.view;
    view.VisibleColumns = 39;
    view.VisibleRows = 12;
    view.ColumnScrollBias = 20;
    view.RowScrollBias = 6;
    view.TopPitch = 55;
    studio_.score.dropSelection();
    studio_.score.Tempo = 100;
    studio_.score.CurrentRow = 0;
    view.ChannelColor = channelColors;
    view.PaleColor = paleColors;
}

/// The Setup Toolbar is loaded here at the latest, so that its lists exist before the device opens.
void Form1::openSound() {
    studio_.setup.setTempoLabel(std::to_string(studio_.score.Tempo));
    setMainCombo1(startInstrument);
    Device_Click();
    Combo1_Click();
}

void Form1::showFirst() {
    platform::MessageLoop& loop = studio_.platform.loop;
    program_.unloadSplash();
    loop.Yield();
    if (loop.isEnding())
        return;
    show();
    if (readFlag(studio_.platform.settings, "Form3", true))
        program_.showWindow("Form3");
    else if (QWidget* setup = program_.window("Form3", true))
        setup->hide();
    studio_.run.LoadingMain = flagClear;
    loop.Yield();
}

void Form1::Form_Unload() {
    sounding.stopitall();
    saveSettings();
    samples.RemoveSamples();
}

void Form1::saveSettings() {
    platform::Settings& settings = studio_.platform.settings;
    settings.SaveSetting(settingsSection, "form1 left", settingText(place.Left()));
    settings.SaveSetting(settingsSection, "form1 top", settingText(place.Top()));
    settings.SaveSetting(settingsSection, "form1 Width", settingText(place.Width()));
    settings.SaveSetting(settingsSection, "form1 Height", settingText(place.Height()));
    settings.SaveSetting(settingsSection, "Percussion", settingText(isBeatboxVisible()));
    settings.SaveSetting(settingsSection, "Polyphonics",
                         settingText(studio_.view.PolyOpen != flagClear));
}

} // namespace velorin
