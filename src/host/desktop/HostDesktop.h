// The desktop around the program, on Qt: screen, pointer, the lock of the single instance, random
// numbers.
#pragma once

#include "host/process/OnceLogger.h"
#include "host/state/SingleInstance.h"
#include "platform/Desktop.h"

#include <filesystem>
#include <functional>
#include <random>

namespace velorin::host {

class HostDesktop final : public platform::Desktop {
public:
    /// `instanceLockFile`: see SingleInstance.h.
    explicit HostDesktop(std::filesystem::path instanceLockFile = {})
        : instance_(std::move(instanceLockFile)) {}

    platform::SizePx screenSize() override; ///< logical pixels
    std::vector<platform::Screen> screens() override;
    bool standsWindowsApart() override { return true; }
    platform::PointPx GetCursorPos() override;
    bool isAnotherCopyRunning() override {
        const bool isOther = instance_.isAnotherRunning();
        if (!isOther && onBegin)
            onBegin();
        return isOther;
    }
    void announceEnd() override {
        instance_.announceEnd();
        if (onEnd)
            onEnd();
    }
    void HtmlHelpA(const std::string& file) override;
    bool startProgram(const std::string& path) override;
    bool openFile(const std::string& path) override;
    void showInFolder(const std::string& path) override;
    double Rnd() override;

    /// Opens the help, which is built into the program, at its first page; false if there is none.
    std::function<bool()> openHelp;

    /// Called once this copy is known to be the only one, and after its end was announced: the
    /// time in which the desktop's calls are for this copy. May be empty.
    std::function<void()> onBegin;
    std::function<void()> onEnd;

private:
    SingleInstance instance_;
    std::mt19937 generator_{std::random_device{}()};
    OnceLogger noHelp_;
};

} // namespace velorin::host
