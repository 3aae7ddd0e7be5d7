// The program with its windows: chooses the host, makes the program, and runs it.
#include "host/EndSignals.h"
#include "host/HostDesktop.h"
#include "host/HostFiles.h"
#include "host/HostSound.h"
#include "host/HostSystemFiles.h"
#include "host/KeptFolder.h"
#include "host/LameEncoder.h"
#include "host/QtDialogs.h"
#include "host/QtMessageBoxes.h"
#include "host/QtMessageLoop.h"
#include "host/QtPopupMenus.h"
#include "host/QtSettings.h"
#include "host/QtTimers.h"
#include "host/StreamRest.h"
#include "platform/Platform.h"
#include "resources/HelpPages.h"
#include "resources/Look.h"
#include "score/Studio.h"
#include "shell/HelpWindow.h"
#include "shell/Program.h"
#include "windows/ToolWindows.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
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

/// The folder under which songs and samples lie: that of the program file, or the user's own where
/// that cannot be written.
QString workFolder() {
    const QString beside = QCoreApplication::applicationDirPath();
    if (QFileInfo(beside).isWritable())
        return beside;
    const QString users =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/velorin";
    QDir().mkpath(users);
    return users;
}

/// The user's folder for the settings of this program.
std::filesystem::path configFolder() {
    return QFileInfo(velorin::host::QtSettings::defaultFile()).absolutePath().toStdString();
}

constexpr int firstPaintMs = 50;

int runProgram(velorin::host::EndSignals& signals) {
    using namespace velorin;
    const QString folder = workFolder();
    host::HostSound sound(QCoreApplication::applicationDirPath().toStdString(),
                          (folder + "/Songs").toStdString());
    host::QtMessageLoop loop(sound.clock());
    host::QtDialogs dialogs(loop, folder + "/Songs");
    host::QtMessageBoxes boxes;
    host::HostFiles files;
    host::QtSettings settings;
    host::HostDesktop desktop;
    host::QtPopupMenus menus(loop);
    host::QtTimers timers;
    host::KeptFolder kept(host::stateFolder(std::getenv("XDG_STATE_HOME"), std::getenv("HOME")));
    host::HostSystemFiles systemFiles(configFolder());
    host::LameEncoder encoder(QCoreApplication::applicationDirPath().toStdString());
    platform::Platform platform{sound.clock(), loop,
                                sound.midi(),  sound.mci(),
                                dialogs,       boxes,
                                files,         settings,
                                desktop,       menus,
                                timers,        systemFiles,
                                encoder,       folder.toStdString(),
                                &kept};
    std::unique_ptr<HelpWindow> help;
    desktop.openHelp = [&help] {
        if (!help)
            help = std::make_unique<HelpWindow>(helpPages());
        help->openFirstPage();
        return help->hasPages();
    };
    Program program(platform);
    addToolWindows(program);
    const host::StreamRest rest(sound,
                                [&program] { return program.studio().run.IsPlaying != flagClear; });
    signals.listen([&program] { program.endFromOutside(); });
    // A session that ends would close the windows, which is what a user does who wants no more.
    QObject session;
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &session,
                     [&program] { program.endFromOutside(); });
    if (program.start() && !program.hasEnded()) {
        // The windows are painted first: opening the sound would take the processor from them.
        QTimer::singleShot(firstPaintMs, &session, [&sound] { sound.begin(); });
        QApplication::exec();
    }
    // The desktop can close the application without its exit command.
    program.endFromOutside();
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
