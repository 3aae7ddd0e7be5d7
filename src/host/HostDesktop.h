// The desktop around the program, on Qt: screen, pointer, the lock of the one copy, random numbers.
#pragma once

#include "host/Complaint.h"
#include "platform/Desktop.h"

#include <QLockFile>

#include <functional>
#include <memory>
#include <random>

namespace velorin::host {

class HostDesktop final : public platform::Desktop {
public:
    platform::SizePx screenSize() override; ///< logical pixels
    std::vector<platform::Screen> screens() override;
    platform::PointPx GetCursorPos() override;
    bool isAnotherCopyRunning() override;
    void HtmlHelpA(const std::string& file) override;
    bool startProgram(const std::string& path) override;
    double Rnd() override;

    /// Opens the help, which is built into the program, at its first page; false if there is none.
    std::function<bool()> openHelp;

private:
    std::unique_ptr<QLockFile> lock_; ///< held from the test to the end of the run
    std::mt19937 generator_{std::random_device{}()};
    Complaint noHelp_;
};

} // namespace velorin::host
