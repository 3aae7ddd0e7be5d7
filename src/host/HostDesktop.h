// The desktop around the program, on Qt: screen, pointer, the lock of the one copy, random numbers.
#pragma once

#include "host/Complaint.h"
#include "host/OneCopy.h"
#include "platform/Desktop.h"

#include <filesystem>
#include <functional>
#include <random>

namespace velorin::host {

class HostDesktop final : public platform::Desktop {
public:
    /// `oneCopyFile` as in OneCopy.h.
    explicit HostDesktop(std::filesystem::path oneCopyFile = {}) : copy_(std::move(oneCopyFile)) {}

    platform::SizePx screenSize() override; ///< logical pixels
    std::vector<platform::Screen> screens() override;
    bool standsWindowsApart() override { return true; }
    platform::PointPx GetCursorPos() override;
    bool isAnotherCopyRunning() override { return copy_.isTaken(); }
    void announceEnd() override { copy_.announceEnd(); }
    void HtmlHelpA(const std::string& file) override;
    bool startProgram(const std::string& path) override;
    double Rnd() override;

    /// Opens the help, which is built into the program, at its first page; false if there is none.
    std::function<bool()> openHelp;

private:
    OneCopy copy_;
    std::mt19937 generator_{std::random_device{}()};
    Complaint noHelp_;
};

} // namespace velorin::host
