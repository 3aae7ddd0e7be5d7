// The whole recording logic on a scripted host, with a desk of plain values for its window.
#pragma once

#include "playback/StopWatch.h"
#include "recording/Capture.h"
#include "recording/FilePlayer.h"
#include "recording/Mp3Encoding.h"
#include "recording/Mp3Player.h"
#include "recording/RecordCommands.h"
#include "recording/RecordDesk.h"
#include "recording/RecordingFormats.h"
#include "recording/modMultimedia.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "support/ScriptedPlatform.h"

#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace velorin {

using Lines = std::vector<std::string>;

struct PlainRecordDesk final : RecordDesk {
    std::map<RecordCaption, std::string> captions{{RecordCaption::Label1, "Start Recording"},
                                                  {RecordCaption::Command20, "Encode File"}};
    std::map<RecordText, std::string> texts;
    std::map<RecordCheck, bool> checks;
    std::map<RecordList, int> lists{
        {RecordList::cbxFormat, startWavFormat}, {RecordList::Combo4, 1}, {RecordList::Combo3, 1}};
    std::map<RecordPanel, bool> panels{{RecordPanel::Picture2, true},
                                       {RecordPanel::Picture7, true}};
    bool sourceIsMid = false;
    RecordPicture rec = RecordPicture::RecUP;
    bool picture5 = false;
    double barWidth = 1.0; ///< of a track of 300
    bool timer10 = false;
    std::vector<bool> topMost;
    Lines statuses; ///< every caption that `Status` got

    std::string caption(RecordCaption control) override { return captions[control]; }
    void setCaption(RecordCaption control, const std::string& text) override {
        captions[control] = text;
        if (control == RecordCaption::Status)
            statuses.push_back(text);
    }
    std::string text(RecordText box) override { return texts[box]; }
    void setText(RecordText box, const std::string& text) override { texts[box] = text; }
    bool isChecked(RecordCheck box) override { return checks[box]; }
    int listIndex(RecordList list) override { return lists[list]; }
    std::string listText(RecordList list) override {
        const int index = lists[list];
        if (index < 0)
            return {};
        const auto row = static_cast<std::size_t>(index);
        if (list == RecordList::cbxFormat)
            return std::string(row < wavFormats.size() ? wavFormats[row].row : "another format");
        return std::string(list == RecordList::Combo4 ? mp3Bitrates[row] : mp3Qualities[row].row);
    }
    bool Optsourcesng() override { return !sourceIsMid; }
    bool Optsourcemid() override { return sourceIsMid; }
    void selectOptsourcesng() override { sourceIsMid = false; }
    void selectOptsourcemid() override { sourceIsMid = true; }
    void enablePanel(RecordPanel panel, bool enabled) override { panels[panel] = enabled; }
    void showRec(RecordPicture picture) override { rec = picture; }
    void showPicture5(bool shown) override { picture5 = shown; }
    void setL2Share(double share) override { barWidth = 300.0 * share; }
    void emptyL2() override { barWidth = 1.0; }
    void enableTimer10() override { timer10 = true; }
    void disableTimer10() override { timer10 = false; }
    void setTopMost(bool top) override { topMost.push_back(top); }
    std::int32_t picMP3Handle() override { return 77; }
};

/// Writes down what is asked of the main window.
struct LoggedRecordCommands final : RecordCommands {
    Lines log;
    std::function<void()> onPlay;
    bool check1 = false;
    bool folderIsThere = true;

    void Command32_Click() override { log.emplace_back("Command32_Click"); }
    void StopallSound() override { log.emplace_back("StopallSound"); }
    void PlayAndStop_Click(int index) override {
        log.push_back("PlayAndStop_Click " + std::to_string(index));
        if (index == 0 && onPlay)
            onPlay();
    }
    void OpenFile(const std::string& name) override { log.push_back("OpenFile " + name); }
    void HideToolbars() override { log.emplace_back("HideToolbars"); }
    void ShowToolbars() override { log.emplace_back("ShowToolbars"); }
    void setCheck1(bool checked) override { check1 = checked; }
    void setChkgraphics(bool checked) override {
        log.emplace_back(checked ? "chkgraphics 1" : "chkgraphics 0");
    }
    void openMidiOutput(int index) override {
        log.push_back("openMidiOutput " + std::to_string(index));
    }
    bool changeToProgramFolder() override { return folderIsThere; }
};

struct RecordingStage {
    RecordingStage() {
        studio.run.SongsFolder = host.folder.path().string();
        player.Recordcontrol = [this] { capture.Recordcontrol(); };
        player.makeStopWatches();
    }

    /// A file in the folder of the test; returns its whole name.
    std::string write(const std::string& name, const std::string& bytes) {
        const std::string path = inFolder(name);
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    [[nodiscard]] std::string inFolder(const std::string& name) const {
        return (host.folder.path() / name).string();
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream file(inFolder(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The command strings since the last call, with their times.
    Lines sent() { return std::exchange(host.mci.log, {}); }
    Lines boxes() { return std::exchange(host.boxes.log, {}); }
    /// The texts of the notices since the last call.
    Lines notices() {
        Lines texts;
        while (const auto notice = host.notices.take())
            texts.push_back(notice->text);
        return texts;
    }
    void in(double seconds, std::function<void()> run) {
        host.time.plan(static_cast<scripted::Nanoseconds>(seconds * 1e9), std::move(run));
    }

    scripted::ScriptedPlatform host;
    PlainSetup setup;
    Studio studio{host.platform, setup};
    StopWatch watch{host.time, host.time};
    PlainRecordDesk desk;
    LoggedRecordCommands commands;
    modMultimedia media{host.platform, desk};
    Mp3Player mp3{studio, media, watch, desk};
    FilePlayer player{studio, mp3, watch, desk, commands};
    Mp3Encoding encoding{studio, desk, commands};
    Capture capture{studio, player, encoding, desk, commands};
};

} // namespace velorin
