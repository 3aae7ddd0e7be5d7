// The program on the real host, in a folder of its own. It is put together like in `main`, but
// clicks start no other programs.
#pragma once

#include "Chance.h"
#include "host/desktop/HostDesktop.h"
#include "host/desktop/IdleStream.h"
#include "host/desktop/QtDialogs.h"
#include "host/desktop/QtMessageBoxes.h"
#include "host/desktop/QtPopupMenus.h"
#include "host/desktop/QtSettings.h"
#include "host/files/HostFiles.h"
#include "host/files/HostSystemFiles.h"
#include "host/loop/QtMessageLoop.h"
#include "host/loop/QtTimers.h"
#include "host/media/LameEncoder.h"
#include "host/sound/HostSound.h"
#include "host/state/HostHistoryStore.h"
#include "platform/Platform.h"
#include "program/Program.h"
#include "windows/help/HelpWindow.h"

#include <QPoint>

#include <filesystem>
#include <functional>
#include <memory>

namespace randomly {

/// The pointer is that of the random user, and no other program is started.
class UsersDesktop final : public platform::Desktop {
public:
    explicit UsersDesktop(Chance& chance) : chance_(chance) {}

    platform::SizePx screenSize() override { return host_.screenSize(); }
    std::vector<platform::Screen> screens() override { return host_.screens(); }
    bool standsWindowsApart() override { return host_.standsWindowsApart(); }
    platform::PointPx GetCursorPos() override { return {pointer.x(), pointer.y()}; }
    bool isAnotherCopyRunning() override { return false; }
    void announceEnd() override {}
    void HtmlHelpA(const std::string& file) override { host_.HtmlHelpA(file); }
    bool startProgram(const std::string&) override { return true; }
    bool openFile(const std::string&) override { return true; }
    void showInFolder(const std::string&) override {}
    double Rnd() override { return chance_.fraction(); }

    void setHelp(std::function<bool()> open) { host_.openHelp = std::move(open); }

    QPoint pointer; ///< on the screen

private:
    velorin::host::HostDesktop host_;
    Chance& chance_;
};

/// One run of the program, from start to end. Members are created and destroyed in the order of
/// `main`.
class RealHost {
public:
    RealHost(const std::filesystem::path& folder, Chance& chance);
    ~RealHost();
    RealHost(const RealHost&) = delete;
    RealHost& operator=(const RealHost&) = delete;

    /// Calls `started` once the program can be used; returns when it has ended.
    void run(const std::function<void()>& started);

private:
    velorin::host::HostSound sound_;
    velorin::host::QtMessageLoop loop_;
    velorin::host::QtSettings settings_;
    velorin::host::QtDialogs dialogs_;
    velorin::host::QtMessageBoxes boxes_;
    velorin::host::HostFiles files_;
    velorin::host::QtPopupMenus menus_;
    velorin::host::QtTimers timers_;
    velorin::host::HostHistoryStore history_;
    velorin::host::HostSystemFiles systemFiles_;
    velorin::host::LameEncoder encoder_;
    std::unique_ptr<velorin::HelpWindow> help_;

public:
    UsersDesktop desktop;

private:
    platform::Platform platform_;

public:
    velorin::Program program;
};

} // namespace randomly
