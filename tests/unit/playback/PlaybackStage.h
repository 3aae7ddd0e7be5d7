// A studio on a scripted host, with a desk that writes down what playing asks of the windows.
#pragma once

#include "playback/NoDesk.h"

#include "playback/NoteSounding.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "support/ScriptedPlatform.h"

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace velorin {

using Lines = std::vector<std::string>;

/// Every call is a line of `log`, "0.120 DrawNoteArray", its time before it.
class RecordingDesk final : public NoDesk {
public:
    explicit RecordingDesk(const scripted::VirtualTime& time) : time_(time) {}

    Lines log;
    std::string instxt;
    /// Runs within every `DrawNoteArray`; what a test looks at while the song plays.
    std::function<void()> onDrawNoteArray;
    /// Runs within every `setHScroll1`, as the bar's own handler does.
    std::function<void(int)> onHScroll1;
    std::function<void()> onRecordcontrol;

    unsigned draws = 0; ///< of the music tableau, whole

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
    std::string Instxt() override { return instxt; }
    void setInstxt(const std::string& text) override { instxt = text; }

private:
    void note(const std::string& what) { log.push_back(time_.stamp() + " " + what); }

    const scripted::VirtualTime& time_;
};

/// The start values of the program: tempo 100, a column of 120 ms; the device is open, and the log
/// of it is empty.
struct PlaybackStage {
    PlaybackStage() {
        setup.device = 1;
        sequencer.PlayTimer = watch.StopWatchNew();
        sounding.Device_Click();
        host.midi.log.clear();
    }

    /// Writes a row from `column` on: a number begins a note of that pitch index, "=" goes on with
    /// it, "." is a rest, as in "60 = = . 64".
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

    /// Plans something, as a click in so many seconds.
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
    /// What was asked of the windows since the last call.
    Lines asked() { return std::exchange(desk.log, {}); }

    scripted::ScriptedPlatform host;
    PlainSetup setup;
    Studio studio{host.platform, setup};
    RecordingDesk desk{host.time};
    NoteSounding sounding{studio, desk};
    StopWatch watch{host.time, host.time};
    Sequencer sequencer{studio, sounding, watch, desk};
};

} // namespace velorin
