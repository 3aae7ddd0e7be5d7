// Sets up Qt's off-screen platform.
#include "Offscreen.h"

#include "support/ScriptedFiles.h"
#include "windows/frame/Look.h"

#include <QApplication>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace transcript {

namespace {

constexpr const char* screen = R"({"screens":[{"name":"S","x":0,"y":0,"width":1024,"height":768,)"
                               R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";

// Hides warnings about features that this platform does not have.
void dropPlatformNotes(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support"))
        std::fprintf(stderr, "%s\n", qPrintable(text));
    if (type == QtFatalMsg)
        std::abort();
}

} // namespace

// The platform reads its screen from a file only while the application is created.
Offscreen::Offscreen(int& argc, char** argv) {
    const scripted::TemporaryFolder folder;
    const std::string file = (folder.path() / "screen.json").string();
    std::ofstream(file) << screen;
    setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).c_str(), 1);
    setenv("QT_SCALE_FACTOR", "1", 1);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_all);
    if (getenv("XDG_RUNTIME_DIR") == nullptr)
        setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
    qInstallMessageHandler(dropPlatformNotes);
    application_ = std::make_unique<QApplication>(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setQuitOnLastWindowClosed(false);
    velorin::applyLook(*application_);
}

Offscreen::~Offscreen() = default;

} // namespace transcript
