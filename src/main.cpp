// The program with its windows: creates the host and the program, and runs it.
#include "host/dbus/BusApplication.h"
#include "host/dbus/WindowActivation.h"
#include "host/desktop/HostDesktop.h"
#include "host/desktop/IdleStream.h"
#include "host/desktop/NoticeQueue.h"
#include "host/desktop/QtDialogs.h"
#include "host/desktop/QtMessageBoxes.h"
#include "host/desktop/QtPopupMenus.h"
#include "host/desktop/QtSettings.h"
#include "host/files/HostFiles.h"
#include "host/files/HostSystemFiles.h"
#include "host/files/ProgramFolders.h"
#include "host/files/UserFolders.h"
#include "host/loop/QtMessageLoop.h"
#include "host/loop/QtTimers.h"
#include "host/loop/SignalListener.h"
#include "host/media/LameEncoder.h"
#include "host/midiin/HostMidiIn.h"
#include "host/sound/HostSound.h"
#include "host/state/HostHistoryStore.h"
#include "platform/Platform.h"
#include "program/DesktopRequests.h"
#include "program/Program.h"
#include "windows/frame/FontLoading.h"
#include "windows/frame/Look.h"
#include "windows/help/HelpPages.h"
#include "windows/help/HelpWindow.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

#include <clocale>
#include <cstdlib>
#include <future>
#include <memory>
#include <utility>

namespace {

/// Prefers X11 to Wayland: the program places its windows itself, which only X11 allows.
void preferX11() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb");
}

/// The folder of songs and samples. The first start copies the installed songs into it.
std::filesystem::path workFolder() {
    const std::filesystem::path beside = QCoreApplication::applicationDirPath().toStdString();
    const auto users = velorin::host::dataFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
    auto folder = velorin::host::workFolder(beside, users);
    velorin::host::copyInstalledSongs(velorin::host::installedFolder(beside), folder / "Songs");
    return folder;
}

/// The user's settings folder.
std::filesystem::path configFolder() {
    return QFileInfo(velorin::host::QtSettings::defaultFile()).absolutePath().toStdString();
}

/// All outlive the run. What the desktop asks for over the bus goes to `requests`.
void connectBus(velorin::host::BusApplication& bus, velorin::host::HostDesktop& desktop,
                velorin::DesktopRequests& requests) {
    bus.onActivate = [&requests](const std::string& token) { requests.activate(token); };
    bus.onOpen = [&requests](const std::vector<std::string>& files, const std::string& token) {
        requests.open(files, token);
    };
    desktop.onBegin = [&bus] { bus.begin(); };
    desktop.onEnd = [&bus] { bus.end(); };
}

constexpr int firstPaintMs = 50;

int runProgram(velorin::host::SignalListener& signals) {
    using namespace velorin;
    const std::filesystem::path folder = workFolder();
    const auto state = host::stateFolder(std::getenv("XDG_STATE_HOME"), std::getenv("HOME"));
    // Created first and destroyed last, so that a copy that waits for this one finds the sound card
    // free.
    host::HostDesktop desktop(host::instanceLockFile(std::getenv("XDG_RUNTIME_DIR"), state));
    host::NoticeQueue notices(state.empty() ? state : state / "notices.json");
    host::HostSound sound(
        QCoreApplication::applicationDirPath().toStdString(),
        {folder / "Songs", state.empty() ? state : state / "recordings", &notices});
    host::QtMessageLoop loop(sound.clock());
    host::QtMessageBoxes boxes;
    host::HostFiles files;
    host::QtSettings settings(host::QtSettings::defaultFile(), &notices);
    host::QtDialogs dialogs(loop, settings, QString::fromStdString((folder / "Songs").string()));
    host::QtPopupMenus menus(loop);
    host::QtTimers timers;
    host::HostHistoryStore history(state.empty() ? state : state / "history", &notices);
    host::HostSystemFiles systemFiles(configFolder());
    host::HostMidiIn midiIn;
    host::LameEncoder encoder(QCoreApplication::applicationDirPath().toStdString());
    platform::Platform platform{sound.clock(), loop,        sound.midi(), sound.mci(),     dialogs,
                                boxes,         files,       settings,     desktop,         menus,
                                timers,        systemFiles, encoder,      folder.string(), &history,
                                &notices,      &midiIn};
    std::unique_ptr<HelpWindow> help;
    desktop.openHelp = [&help] {
        if (!help)
            help = std::make_unique<HelpWindow>(helpPages());
        help->openFirstPage();
        return help->hasPages();
    };
    Program program(platform);
    DesktopRequests requests(program);
    requests.activateWindow = host::activateWindow;
    host::BusApplication bus;
    connectBus(bus, desktop, requests);
    const host::IdleStream idleStream(
        sound, [&program] { return program.studio().run.IsPlaying.isSet(); });
    signals.listen([&program] { program.Command3_Click(); });
    // At the end of a desktop session Qt would close the windows, as if the user had closed them.
    QObject session;
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &session,
                     [&program] { program.Command3_Click(); });
    if (program.start() && !program.hasEnded()) {
        program.begin();
        requests.begin();
        // The windows are painted first, since opening the sound needs the processor.
        QTimer::singleShot(firstPaintMs, &session, [&sound] { sound.begin(); });
        QApplication::exec();
    }
    // The desktop can end the application without the exit command.
    program.Command3_Click();
    return program.exitStatus();
}

} // namespace

int main(int argc, char** argv) {
    velorin::host::SignalListener signals; // before the first thread
    preferX11();
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    std::future<void> fontSettings = velorin::readFontSettings();
    QApplication application(argc, argv);
    const velorin::FontLoading fonts(std::move(fontSettings));
    // QApplication sets the user's locale. Numbers must be read and written the same in every
    // locale.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName("Velorin");
    QApplication::setApplicationVersion("2.1");
    QApplication::setDesktopFileName(velorin::host::BusApplication::busName);
    // Only the exit command ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    velorin::applyLook(application);
    return runProgram(signals);
}
