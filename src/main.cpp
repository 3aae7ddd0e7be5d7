// The program with its windows: chooses the host, makes the program, and runs it.
#include "host/EndSignals.h"
#include "host/HostDesktop.h"
#include "host/HostFiles.h"
#include "host/HostSound.h"
#include "host/HostSystemFiles.h"
#include "host/KeptFolder.h"
#include "host/LameEncoder.h"
#include "host/NoticeBoard.h"
#include "host/ProgramFolders.h"
#include "host/QtDialogs.h"
#include "host/QtMessageBoxes.h"
#include "host/QtMessageLoop.h"
#include "host/QtPopupMenus.h"
#include "host/QtSettings.h"
#include "host/QtTimers.h"
#include "host/StreamRest.h"
#include "host/UserFolders.h"
#include "platform/Platform.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "resources/HelpPages.h"
#include "resources/Look.h"
#include "score/Studio.h"
#include "shell/HelpWindow.h"
#include "windows/ToolWindows.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

#include <clocale>
#include <cstdlib>
#include <memory>

namespace {

/// The program places its windows itself, which X11 allows and Wayland does not; so it asks for X11
/// where both are there.
void preferX11() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb");
}

/// The folder under which songs and samples lie, with the installed songs in it after the first
/// start.
std::filesystem::path workFolder() {
    const std::filesystem::path beside = QCoreApplication::applicationDirPath().toStdString();
    const auto users = velorin::host::dataFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
    auto folder = velorin::host::workFolder(beside, users);
    velorin::host::putInstalledSongs(velorin::host::installedFolder(beside), folder / "Songs");
    return folder;
}

/// The user's folder for the settings of this program.
std::filesystem::path configFolder() {
    return QFileInfo(velorin::host::QtSettings::defaultFile()).absolutePath().toStdString();
}

constexpr int firstPaintMs = 50;

int runProgram(velorin::host::EndSignals& signals) {
    using namespace velorin;
    const std::filesystem::path folder = workFolder();
    const auto state = host::stateFolder(std::getenv("XDG_STATE_HOME"), std::getenv("HOME"));
    // First, so that a copy that waits for this one to end finds the sound card free.
    host::HostDesktop desktop(host::oneCopyFile(std::getenv("XDG_RUNTIME_DIR"), state));
    host::NoticeBoard notices(state.empty() ? state : state / "notices.json");
    host::HostSound sound(
        QCoreApplication::applicationDirPath().toStdString(),
        {folder / "Songs", state.empty() ? state : state / "recordings", &notices});
    host::QtMessageLoop loop(sound.clock());
    host::QtDialogs dialogs(loop, QString::fromStdString((folder / "Songs").string()));
    host::QtMessageBoxes boxes;
    host::HostFiles files;
    host::QtSettings settings(host::QtSettings::defaultFile(), &notices);
    host::QtPopupMenus menus(loop);
    host::QtTimers timers;
    host::KeptFolder kept(state, &notices);
    host::HostSystemFiles systemFiles(configFolder());
    host::LameEncoder encoder(QCoreApplication::applicationDirPath().toStdString());
    platform::Platform platform{
        sound.clock(), loop,  sound.midi(), sound.mci(), dialogs, boxes,           files, settings,
        desktop,       menus, timers,       systemFiles, encoder, folder.string(), &kept, &notices};
    std::unique_ptr<HelpWindow> help;
    desktop.openHelp = [&help] {
        if (!help)
            help = std::make_unique<HelpWindow>(helpPages());
        help->openFirstPage();
        return help->hasPages();
    };
    Program program(platform);
    const host::StreamRest rest(sound,
                                [&program] { return program.studio().run.IsPlaying != flagClear; });
    signals.listen([&program] { program.Command3_Click(); });
    // A session that ends would close the windows, which is what a user does who wants no more.
    QObject session;
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &session,
                     [&program] { program.Command3_Click(); });
    if (program.start([&program] { addToolWindows(program); }) && !program.hasEnded()) {
        // The windows are painted first: opening the sound would take the processor from them.
        QTimer::singleShot(firstPaintMs, &session, [&sound] { sound.begin(); });
        QApplication::exec();
    }
    // The desktop can close the application without its exit command.
    program.Command3_Click();
    return program.exitStatus();
}

} // namespace

int main(int argc, char** argv) {
    velorin::host::EndSignals signals; // before the first thread
    preferX11();
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    // The application takes over the user's locale; numbers are read and written the same in all.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName("Velorin");
    QApplication::setApplicationVersion("2.1");
    QApplication::setDesktopFileName("velorin");
    // Windows come and go; the exit command alone ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    velorin::applyLook(application);
    return runProgram(signals);
}
