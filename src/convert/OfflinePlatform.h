// A host without a desktop: a clock that jumps instead of waiting, real files, and no user.
#pragma once

#include "host/files/HostFiles.h"
#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/Dialogs.h"
#include "platform/Encoder.h"
#include "platform/Mci.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"
#include "platform/PopupMenus.h"
#include "platform/Settings.h"
#include "platform/SystemFiles.h"
#include "platform/Timers.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <sstream>
#include <string>

namespace velorin::convert {

/// Nanoseconds from 0. Moves only during waits.
class JumpingClock final : public platform::Clock {
public:
    std::int64_t QueryPerformanceCounter() override { return nowNs; }
    std::int64_t QueryPerformanceFrequency() override { return 1'000'000'000; }
    std::uint32_t GetTickCount() override { return static_cast<std::uint32_t>(nowNs / 1'000'000); }
    void hold(int milliseconds) override { nowNs += std::int64_t{1'000'000} * milliseconds; }

    std::int64_t nowNs = 0;
};

/// The files of the machine, and one score that is in memory.
class SourceFiles final : public host::HostFiles {
public:
    /// From now on `name` opens `text`.
    void offer(const std::string& name, const std::string& text) {
        name_ = name;
        text_ = text;
    }
    std::unique_ptr<std::istream> openForInput(const std::string& name) override {
        if (!text_.empty() && name == name_)
            return std::make_unique<std::istringstream>(text_);
        return HostFiles::openForInput(name);
    }

private:
    std::string name_;
    std::string text_;
};

/// There are no events, so every wait jumps to its end.
class JumpingLoop final : public platform::MessageLoop {
public:
    explicit JumpingLoop(JumpingClock& clock) : clock_(clock) {}

    void Yield() override {
        if (onYield)
            onYield();
    }
    void waitUntil(std::int64_t counter) override {
        if (!ending_)
            clock_.nowNs = std::max(clock_.nowNs + 1, counter);
        if (onWaited)
            onWaited();
    }
    void end() override { ending_ = true; }
    bool isEnding() const override { return ending_; }

    std::function<void()> onYield;
    std::function<void()> onWaited; ///< called after each jump

private:
    JumpingClock& clock_;
    bool ending_ = false;
};

// Interfaces that a conversion never uses. They answer like a user who cancels everything.

struct NoMci final : platform::Mci {
    std::uint32_t mciSendStringA(const std::string&, std::string*) override { return 263; }
    std::string mciGetErrorStringA(std::uint32_t) override { return {}; }
};

struct NoDialogs final : platform::FileDialogs {
    std::optional<platform::FileDialogAnswer>
    GetOpenFileNameA(const platform::FileDialogRequest&) override {
        return std::nullopt;
    }
    std::optional<platform::FileDialogAnswer>
    GetSaveFileNameA(const platform::FileDialogRequest&) override {
        return std::nullopt;
    }
};

struct NoBoxes final : platform::MessageBoxes {
    void MsgBox(platform::BoxIcon, const std::string&, const std::string&) override {}
};

struct NoSettings final : platform::Settings {
    std::string GetSetting(const std::string&, const std::string&,
                           const std::string& fallback) override {
        return fallback;
    }
    void SaveSetting(const std::string&, const std::string&, const std::string&) override {}
};

struct NoDesktop final : platform::Desktop {
    platform::SizePx screenSize() override { return {}; }
    platform::PointPx GetCursorPos() override { return {}; }
    bool isAnotherCopyRunning() override { return false; }
    void announceEnd() override {}
    void HtmlHelpA(const std::string&) override {}
    bool startProgram(const std::string&) override { return false; }
    bool openFile(const std::string&) override { return false; }
    void showInFolder(const std::string&) override {}
    double Rnd() override { return 0.0; }
};

struct NoSystemFiles final : platform::SystemFiles {
    std::string GetShortPathNameA(const std::string& path) override { return path; }
    std::string GetWindowsDirectoryA() override { return {}; }
    std::string GetPrivateProfileStringA(const std::string&, const std::string&,
                                         const std::string& fallback, const std::string&) override {
        return fallback;
    }
    bool WritePrivateProfileStringA(const std::string&, const std::string&, const std::string&,
                                    const std::string&) override {
        return false;
    }
};

struct NoEncoder final : platform::Encoder {
    bool isPresent(const std::string&) override { return false; }
    std::uint32_t beInitStream(const platform::ConfigRecord&, std::uint32_t&, std::uint32_t&,
                               platform::EncoderStream&) override {
        return platform::encoderNoMoreHandles;
    }
    std::uint32_t beEncodeChunk(platform::EncoderStream, std::uint32_t, const std::int16_t*,
                                std::uint8_t*, std::uint32_t&) override {
        return platform::encoderInvalidHandle;
    }
    std::uint32_t beDeinitStream(platform::EncoderStream, std::uint8_t*, std::uint32_t&) override {
        return platform::encoderInvalidHandle;
    }
    std::uint32_t beCloseStream(platform::EncoderStream) override {
        return platform::encoderInvalidHandle;
    }
};

struct NoMenus final : platform::PopupMenus {
    std::string PopupMenu(const std::string&, const std::vector<platform::PopupEntry>&) override {
        return {};
    }
};

struct NoTimers final : platform::Timers {
    int after(int, std::function<void()>) override { return 0; }
    void cancel(int) override {}
};

/// All of it, with the given MIDI device.
class OfflinePlatform {
public:
    explicit OfflinePlatform(platform::MidiOut& midi) : midi_(midi) {}

    JumpingClock clock;
    JumpingLoop loop{clock};

private:
    platform::MidiOut& midi_;
    NoMci mci_;
    NoDialogs dialogs_;
    NoBoxes boxes_;
    SourceFiles files_;
    NoSettings settings_;
    NoDesktop desktop_;
    NoMenus menus_;
    NoTimers timers_;
    NoSystemFiles systemFiles_;
    NoEncoder encoder_;

public:
    platform::Platform platform{clock,   loop,         midi_,     mci_,     dialogs_,
                                boxes_,  files_,       settings_, desktop_, menus_,
                                timers_, systemFiles_, encoder_,  {}};

    /// Puts a score that is in no file under a name.
    void offer(const std::string& name, const std::string& text) { files_.offer(name, text); }

    /// The same host with another clock, loop and device.
    [[nodiscard]] platform::Platform on(platform::Clock& otherClock,
                                        platform::MessageLoop& otherLoop,
                                        platform::MidiOut& otherMidi) {
        return {otherClock, otherLoop, otherMidi, mci_,    dialogs_,     boxes_,   files_,
                settings_,  desktop_,  menus_,    timers_, systemFiles_, encoder_, {}};
    }
};

} // namespace velorin::convert
