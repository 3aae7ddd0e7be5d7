// The program on its real host, in a folder of its own: what `main` puts together, without a second
// program being started by a click.
#pragma once

#include "Chance.h"
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
#include "program/Program.h"
#include "shell/HelpWindow.h"

#include <QPoint>

#include <filesystem>
#include <memory>

namespace randomly {

/// The pointer is the random user's, and nothing is started outside.
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
    double Rnd() override { return chance_.fraction(); }

    void setHelp(std::function<bool()> open) { host_.openHelp = std::move(open); }

    QPoint pointer; ///< on the screen

private:
    velorin::host::HostDesktop host_;
    Chance& chance_;
};

/// One run of the program, from its start to its end. Members are made and destroyed in the order
/// of `main`.
class RealHost {
public:
    RealHost(const std::filesystem::path& folder, Chance& chance);
    ~RealHost();
    RealHost(const RealHost&) = delete;
    RealHost& operator=(const RealHost&) = delete;

    /// Returns when the program has ended.
    void run();

private:
    velorin::host::HostSound sound_;
    velorin::host::QtMessageLoop loop_;
    velorin::host::QtDialogs dialogs_;
    velorin::host::QtMessageBoxes boxes_;
    velorin::host::HostFiles files_;
    velorin::host::QtSettings settings_;
    velorin::host::QtPopupMenus menus_;
    velorin::host::QtTimers timers_;
    velorin::host::KeptFolder kept_;
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
