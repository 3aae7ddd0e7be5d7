// The start and the end of the main window: what is read, set, sent and saved, in order.
#include "model/InstrumentNames.h"
#include "platform/Desktop.h"
#include "platform/Files.h"
#include "platform/MessageLoop.h"
#include "platform/PathLookup.h"
#include "platform/Settings.h"
#include "session/Session.h"
#include "tutorial/SampleFiles.h"
#include "windows/frame/SettingValues.h"
#include "windows/frame/ToolWindows.h"
#include "windows/main/Form1.h"

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

/// Fills a list without running its handler. It then shows no entry.
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

} // namespace

// Rule: the number box is empty at the start, so channel 0 gets program 0 before its instrument,
// and the device is opened twice. Held by shell/first_start.
//
// Rule: each start shows the playing position, whatever the setting says. Held by
// editing/toolbar_settings.
void Form1::Form_Load() {
    Run& run = studio_.run;
    QDir::setCurrent(QString::fromStdString(studio_.platform.programFolder));
    run.LoadingMain = flagSet;
    readPlace();
    readViewSettings();
    run.SongsFolder = studio_.platform.programFolder + platform::shownPath("\\Songs");
    // It may exist. A failure shows when a song is saved.
    (void)studio_.platform.files.createFolder(run.SongsFolder);
    session.sounding.SoundRow = 0;
    session.sounding.Velocity = 127;
    studio_.score.ClearNoteArrays();
    fill(*Combo1, static_cast<int>(instrumentNames.size()), instrumentEntry);
    fill(*Combo5, static_cast<int>(percussionNames.size()), percussionEntry);
    {
        const QSignalBlocker quiet(Combo5);
        Combo5->setCurrentIndex(0);
    }
    session.sounding.Command9_Click();
    session.TrackSel_Click(
        0); // the first draw reads the Setup Toolbar's boxes, which loads that window
    setStartView();
    music.DrawNoteNames();
    area->Beatbox->place(area->MusicBox->x(), area->Beatbox->y(), area->MusicBox->width(),
                         area->Beatbox->height());
    run.ShowNotePosition = flagSet;
    session.sequencer.PlayTimer = session.watch.StopWatchNew();
    frame.SkinMainWindow(flagSet);
    openSound();
    studio_.score.ClearPolies();
    poly.DrawPolyTableau();
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
    // Damaged settings must not give a window that the user cannot see or reach.
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

/// The title up to its buttons must be in reach; in a narrow window, `gripWidthPx` of it.
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

/// Loads the Setup Toolbar if it is not loaded yet: its lists must exist before the device opens.
void Form1::openSound() {
    studio_.setup.setTempoLabel(std::to_string(studio_.score.Tempo));
    desk.setMainCombo1(startInstrument);
    session.sounding.Device_Click();
    session.sounding.Combo1_Click();
}

void Form1::showFirst() {
    platform::MessageLoop& loop = studio_.platform.loop;
    onReady();
    loop.Yield();
    if (loop.isEnding())
        return;
    show();
    if (readFlag(studio_.platform.settings, "Form3", true))
        windows_.show(Tool::setup);
    else if (QWidget* setup = windows_.load(Tool::setup))
        setup->hide();
    studio_.run.LoadingMain = flagClear;
    loop.Yield();
}

void Form1::Form_Unload() {
    session.sounding.stopitall();
    saveSettings();
    samples_.RemoveSamples();
}

void Form1::saveSettings() {
    platform::Settings& settings = studio_.platform.settings;
    settings.SaveSetting(settingsSection, "form1 left", settingText(place.Left()));
    settings.SaveSetting(settingsSection, "form1 top", settingText(place.Top()));
    settings.SaveSetting(settingsSection, "form1 Width", settingText(place.Width()));
    settings.SaveSetting(settingsSection, "form1 Height", settingText(place.Height()));
    settings.SaveSetting(settingsSection, "Percussion", settingText(!area->Beatbox->isHidden()));
    settings.SaveSetting(settingsSection, "Polyphonics",
                         settingText(studio_.view.PolyOpen.isSet()));
}

} // namespace velorin
