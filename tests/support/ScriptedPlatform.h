// A whole host for a test: virtual time, devices that keep logs, dialogs that are answered
// beforehand, real files in a folder of its own.
#pragma once

#include "platform/Desktop.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "platform/SystemFiles.h"
#include "support/ScriptedDialogs.h"
#include "support/ScriptedEncoder.h"
#include "support/ScriptedFiles.h"
#include "support/ScriptedMci.h"
#include "support/ScriptedMidi.h"
#include "support/ScriptedNotices.h"
#include "support/VirtualTime.h"

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scripted {

/// Keys and sections do not mind case. Everything is kept until the end of the test.
class ScriptedSettings final : public platform::Settings {
public:
    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& fallback) override;
    void SaveSetting(const std::string& section, const std::string& key,
                     const std::string& value) override;

    [[nodiscard]] std::optional<std::string> find(const std::string& section,
                                                  const std::string& key) const;

private:
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

/// The system's folder is the program's; what its INI files hold is kept to the end of the test.
class ScriptedSystemFiles final : public platform::SystemFiles {
public:
    explicit ScriptedSystemFiles(std::string folder) : folder_(std::move(folder)) {}

    std::string GetShortPathNameA(const std::string& path) override; ///< "%20" for each blank
    std::string GetWindowsDirectoryA() override { return folder_; }
    std::string GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                         const std::string& fallback,
                                         const std::string& file) override;
    bool WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                    const std::string& value, const std::string& file) override;

private:
    std::string folder_;
    std::map<std::string, std::string> values_; ///< by file, section and key, in lower case
};

class ScriptedDesktop final : public platform::Desktop {
public:
    platform::SizePx screenSize() override { return screen; }
    std::vector<platform::Screen> screens() override {
        return otherScreens.empty() ? Desktop::screens() : otherScreens;
    }
    bool standsWindowsApart() override { return standsApart; }
    platform::PointPx GetCursorPos() override { return cursor; }
    bool isAnotherCopyRunning() override { return anotherCopy; }
    void announceEnd() override { isEndAnnounced = true; }
    void HtmlHelpA(const std::string& file) override { programs.push_back("help " + file); }
    bool startProgram(const std::string& path) override {
        programs.push_back("mixer " + path);
        return true;
    }
    double Rnd() override; ///< the next of `randoms`; 0 when there is none

    platform::SizePx screen{1024, 768};
    std::vector<platform::Screen> otherScreens; ///< in place of the one, if there are any
    bool standsApart = false;                   ///< the places of the first start are those by rule
    platform::PointPx cursor;
    bool anotherCopy = false;
    bool isEndAnnounced = false;
    std::deque<double> randoms;
    std::vector<std::string> programs; ///< what was started outside: "help name", "mixer path"
};

/// The interfaces refer to this object, so it stays where it is and outlives every user.
class ScriptedPlatform {
public:
    ScriptedPlatform();
    ScriptedPlatform(const ScriptedPlatform&) = delete;
    ScriptedPlatform& operator=(const ScriptedPlatform&) = delete;

    TemporaryFolder folder;
    VirtualTime time;
    ScriptedMidi midi;
    ScriptedMci mci;
    ScriptedDialogs dialogs;
    ScriptedBoxes boxes;
    ScriptedMenus menus;
    ScriptedFiles files;
    ScriptedSettings settings;
    ScriptedDesktop desktop;
    ScriptedSystemFiles systemFiles;
    ScriptedEncoder encoder;
    ScriptedNotices notices;

    platform::Platform platform; ///< all of the above; the program's folder is `folder`
};

} // namespace scripted
