// The desktop around the program, on Qt.
#include "host/desktop/HostDesktop.h"

#include "host/desktop/FileManager.h"
#include "platform/Text.h"

#include <QCursor>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>

namespace velorin::host {

platform::SizePx HostDesktop::screenSize() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return {};
    return {screen->size().width(), screen->size().height()};
}

std::vector<platform::Screen> HostDesktop::screens() {
    const auto plain = [](const QRect& rect) {
        return platform::RectPx{rect.x(), rect.y(), rect.width(), rect.height()};
    };
    std::vector<platform::Screen> all;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect whole = screen->geometry();
        // With several screens a desktop may report a free area for only one of them.
        const QRect free = screen->availableGeometry();
        all.push_back({plain(whole), plain(free.isEmpty() ? whole : free)});
    }
    return all.empty() ? Desktop::screens() : all;
}

platform::PointPx HostDesktop::GetCursorPos() {
    const QPoint place = QCursor::pos();
    return {place.x(), place.y()};
}

void HostDesktop::HtmlHelpA(const std::string& file) {
    if (!openHelp || !openHelp())
        noHelp_.log("there is no help file " + file);
}

// The host has no mixer of that name, so the first usual volume control that is installed is
// started.
bool HostDesktop::startProgram(const std::string& path) {
    if (!platform::endsWithIgnoringCase(path, "SndVol32.exe"))
        return QProcess::startDetached(QString::fromStdString(path), {});
    struct Mixer {
        const char* program;
        QStringList arguments;
    };
    const Mixer mixers[] = {
        {"pavucontrol", {}},
        {"pavucontrol-qt", {}},
        {"plasma-open-settings", {"kcm_pulseaudio"}},
        {"gnome-control-center", {"sound"}},
        {"mate-volume-control", {}},
        {"xfce4-mixer", {}},
        {"qasmixer", {}},
        {"alsamixergui", {}},
    };
    for (const Mixer& mixer : mixers) {
        if (!QStandardPaths::findExecutable(mixer.program).isEmpty())
            return QProcess::startDetached(mixer.program, mixer.arguments);
    }
    return false;
}

bool HostDesktop::openFile(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
}

void HostDesktop::showInFolder(const std::string& path) {
    showInFileManager(QString::fromStdString(path));
}

double HostDesktop::Rnd() {
    return std::generate_canonical<double, 32>(generator_);
}

} // namespace velorin::host
