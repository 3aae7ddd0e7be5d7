// The whole recording logic in a session on a scripted host, with fakes of its window and of the
// main window.
#pragma once

#include "recording/Capture.h"
#include "recording/FilePlayer.h"
#include "recording/Mp3Encoding.h"
#include "recording/Mp3Player.h"
#include "recording/RecordDesk.h"
#include "recording/RecordingFormats.h"
#include "recording/modMultimedia.h"
#include "session/Session.h"
#include "studio/NoDesk.h"
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
    double barWidth = 1.0; ///< the track's width is 300
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

    Lines news;
    std::vector<double> shares; ///< of the encodings
    void recordingBegun(const std::string& wav, int bytesPerSecond, bool fromScore) override {
        news.push_back("recording " + wav + " " + std::to_string(bytesPerSecond) +
                       (fromScore ? " of the score" : ""));
    }
    void recordingEnded(const std::string& wav) override { news.push_back("recorded " + wav); }
    void encodingBegun(const std::string& name) override { news.push_back("encoding " + name); }
    void encodingAt(double share) override { shares.push_back(share); }
    void encodingEnded(const MadeMp3& made) override {
        news.push_back("made " + made.mp3 + (made.isWhole ? "" : ", not whole") +
                       (made.isStopped ? ", stopped" : "") + "; " + made.flaw);
    }
    void explain(const std::string& lines) override { news.push_back("hint " + lines); }
};

/// Logs what is asked of the main window.
struct LoggedDesk final : NoDesk {
    Lines log;
    std::function<void()> onPlay; ///< runs when a score begins to play; takes the score's time
    std::function<void()> endRecording; ///< ends the recording when the score is over
    bool check1 = false;
    bool folderIsThere = true;

    void HideToolbars() override { log.emplace_back("HideToolbars"); }
    void ShowToolbars() override { log.emplace_back("ShowToolbars"); }
    void setCheck1(bool checked) override { check1 = checked; }
    void setChkgraphics(bool checked) override {
        log.emplace_back(checked ? "chkgraphics 1" : "chkgraphics 0");
    }
    /// "Stop all" sets the number of the instrument that it sends again.
    void setText(MainText box, const std::string& text) override {
        if (box == MainText::Instxt)
            log.push_back("Instxt " + text);
    }
    /// Locked when a score begins to play, unlocked at its end and by a stop.
    void enableTableaux(bool enabled) override {
        log.emplace_back(enabled ? "tableaux 1" : "tableaux 0");
        if (!enabled && onPlay)
            onPlay();
    }
    void Recordcontrol() override {
        if (endRecording)
            endRecording();
    }
    bool changeToProgramFolder() override { return folderIsThere; }
};

/// The sequencer has no stopwatch, so a score is over as soon as it begins. The time that passes in
/// `onPlay` stands for its length.
struct RecordingStage {
    RecordingStage() {
        studio.desk = &mainDesk;
        mainDesk.endRecording = [this] { capture.Recordcontrol(); };
        studio.run.SongsFolder = host.folder.path().string();
        player.Recordcontrol = [this] { capture.Recordcontrol(); };
        player.makeStopWatches();
    }

    /// Writes a file into the folder of the test and returns its full name.
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
    Session session{host.platform};
    Studio& studio = session.studio;
    PlainRecordDesk desk;
    LoggedDesk mainDesk;
    modMultimedia media{host.platform, desk};
    Mp3Player mp3{studio, media, session.watch, desk};
    FilePlayer player{session, mp3, desk};
    Mp3Encoding encoding{studio, desk};
    Capture capture{session, player, encoding, desk};
};

} // namespace velorin
