// A studio on a scripted host, with a desk that logs what playing asks of the windows.
#pragma once

#include "session/Session.h"
#include "support/ScriptedPlatform.h"

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace velorin {

using Lines = std::vector<std::string>;

/// Every call is a line of `log` that begins with its time: "0.120 DrawNoteArray".
class RecordingDesk final : public NoDesk {
public:
    explicit RecordingDesk(const scripted::VirtualTime& time) : time_(time) {}

    Lines log;
    std::string instxt;
    /// Runs within every `DrawNoteArray`, so that a test can check something while the song plays.
    std::function<void()> onDrawNoteArray;
    /// Runs within every `setHScroll1`, as the bar's own handler does.
    std::function<void(int)> onHScroll1;
    std::function<void()> onRecordcontrol;

    unsigned draws = 0; ///< how often the whole music tableau was drawn

    void DrawNoteArray() override {
        ++draws;
        note("DrawNoteArray");
        if (onDrawNoteArray)
            onDrawNoteArray();
    }
    void DrawBeatArray() override { note("DrawBeatArray"); }
    void setHScroll1(int value) override {
        note("HScroll1 " + std::to_string(value));
        if (onHScroll1)
            onHScroll1(value);
    }

    unsigned musicDraws() override { return draws; }
    void clearMusicBox() override { note("clear"); }
    void GetColumn(int offset) override { note("GetColumn " + std::to_string(offset)); }
    void PutColumn(int offset) override { note("PutColumn " + std::to_string(offset)); }
    void drawPlayMarker(int offset) override { note("marker " + std::to_string(offset)); }
    void enableTableaux(bool enabled) override {
        note(enabled ? "enable tableaux" : "disable tableaux");
    }
    void enableWizard(bool enabled) override { note(enabled ? "enable Wiz" : "disable Wiz"); }
    void enableToolbars() override { note("enable toolbars"); }
    void showProgress(double ratio, const std::string* caption) override {
        note("progress " + std::to_string(ratio) + (caption ? " \"" + *caption + "\"" : ""));
    }
    void endProgress() override { note("end progress"); }
    void Recordcontrol() override {
        note("Recordcontrol");
        if (onRecordcontrol)
            onRecordcontrol();
    }
    std::string text(MainText box) override { return box == MainText::Instxt ? instxt : ""; }
    void setText(MainText box, const std::string& text) override {
        if (box == MainText::Instxt)
            instxt = text;
    }

private:
    void note(const std::string& what) { log.push_back(time_.stamp() + " " + what); }

    const scripted::VirtualTime& time_;
};

/// The start values of the program: tempo 100, a column of 120 ms. The device is open and its log
/// empty.
struct PlaybackStage {
    PlaybackStage() {
        studio.desk = &desk;
        studio.setup.values.device = 1;
        sequencer.PlayTimer = watch.StopWatchNew();
        sounding.Device_Click();
        host.midi.log.clear();
    }

    /// Writes a row from `column` on: a number starts a note of that pitch index, "=" holds it, "."
    /// is a rest, as in "60 = = . 64".
    void write(int row, const std::string& cells, std::int16_t instrument = 0, int column = 0) {
        std::istringstream text(cells);
        std::string cell;
        int pitch = 0;
        for (; text >> cell; ++column) {
            if (cell == ".")
                continue;
            pitch = cell == "=" ? pitch : std::stoi(cell);
            const auto value = static_cast<std::int16_t>(cell == "=" ? heldOffset + pitch : pitch);
            studio.score.NoteArray.write(row, column, value);
            studio.score.InstrumentArray.write(row, column, instrument);
        }
    }

    /// Plans an event, such as a click, for a time in seconds from now.
    void at(double seconds, std::function<void()> run) {
        host.time.plan(
            static_cast<scripted::Nanoseconds>(seconds * scripted::nanosecondsPerSecond + 0.5),
            std::move(run));
    }

    /// Plays the columns [first, last], as the Editing Toolbar's button does.
    void playBlock(std::int16_t first, std::int16_t last) {
        studio.run.PlayBlockStart = first;
        studio.run.PlayBlockEnd = last;
        studio.run.IsPlaying = flagSet;
        sequencer.PlaySelection();
        studio.run.IsPlaying = flagClear;
    }

    /// The messages since the last call.
    Lines midi() { return std::exchange(host.midi.log, {}); }
    /// The calls to the windows since the last call of this.
    Lines asked() { return std::exchange(desk.log, {}); }

    scripted::ScriptedPlatform host;
    RecordingDesk desk{host.time};
    Session session{host.platform};
    Studio& studio = session.studio;
    SetupValues& setup = studio.setup.values;
    NoteSounding& sounding = session.sounding;
    StopWatch& watch = session.watch;
    Sequencer& sequencer = session.sequencer;
};

} // namespace velorin
