// A complete host for tests: virtual time, devices that keep logs, dialogs with answers set in
// advance, and real files in a temporary folder.
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

/// Keys and sections are case-insensitive. Everything is kept until the end of the test.
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

/// The system's folder is the program's folder. The values of its INI files are kept until the end
/// of the test.
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
    bool openFile(const std::string& path) override {
        programs.push_back("file " + path);
        return true;
    }
    void showInFolder(const std::string& path) override { programs.push_back("folder " + path); }
    double Rnd() override; ///< the next of `randoms`; 0 if there is none

    platform::SizePx screen{1024, 768};
    std::vector<platform::Screen> otherScreens; ///< replace the single screen if there are any
    bool standsApart = false; ///< tool windows get their default places at the first start
    platform::PointPx cursor;
    bool anotherCopy = false;
    bool isEndAnnounced = false;
    std::deque<double> randoms;
    std::vector<std::string> programs; ///< the programs that were started: "help name", "mixer
                                       ///< path", "file path", "folder path"
};

/// The interfaces refer to this object, so it cannot move and must outlive its users.
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
