// Step entry in the program: from the MIDI keyboard to the score, the history, the settings and
// what is said.
#pragma once

#include "entry/KeySteps.h"
#include "entry/StepEntry.h"
#include "history/HistoryTree.h"
#include "program/TableauPen.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velorin {

class Form1;
class History;
class MidiKeyboard;
class Session;

/// Off at the start of the program. The settings remember the length of a step. Each step is one
/// change of the history; undo and redo of a step move the marker too.
///
/// While it is on, the marker stays where the next step is written: it comes back after a drawing
/// by the mouse, and after the end of a song, both of which move it to column 0. User-interface
/// thread only.
class StepKeyboard {
public:
    /// The parts that it uses. All outlive it.
    struct Parts {
        Session& session;
        History& history;
        Form1& form;
        MidiKeyboard& keyboard;
    };

    /// Listens to the keyboard from now on. `say` shows the user a line.
    StepKeyboard(const Parts& parts, std::function<void(const std::string&)> say);
    ~StepKeyboard();
    StepKeyboard(const StepKeyboard&) = delete;
    StepKeyboard& operator=(const StepKeyboard&) = delete;

    void toggle(); ///< says so if the keyboard is off, and stays off then
    void end();    ///< switches it off without a word
    [[nodiscard]] bool isOn() const { return isOn_; }

    void setLength(int columns); ///< [1, 8]
    void stepBack();             ///< the marker; says so if step entry is off
    void rest();                 ///< says so if step entry is off

    // Around what moves the marker although the user has not chosen a place.
    void takeMarker();   ///< before it
    void keepMarker();   ///< after it: if the marker is at column 0 now, it comes back
    void historyMoved(); ///< after undo and redo: the marker of that state, if a step was its last
                         ///< change

private:
    /// The keys of a chord, or none for a rest.
    using Step = std::vector<int>;

    void take(Step step);
    void carryOut(const Step& step);
    void carryOutWaiting(); ///< then no step is being written any more
    void noteMarker();
    void report(StepResult result);

    Session& session_;
    History& history_;
    Form1& form_;
    MidiKeyboard& keyboard_;
    std::function<void(const std::string&)> say_;
    TableauPen pen_;
    StepEntry entry_;
    KeySteps keys_;
    std::deque<Step> waiting_;                 ///< played while the one before scrolls the view
    std::map<StateId, std::int16_t> markerOf_; ///< by state, of those around steps
    std::int16_t marker_ = 0;                  ///< at the last `takeMarker`
    StepResult lastResult_ = StepResult::done;
    bool isOn_ = false;
    bool isWriting_ = false;
};

} // namespace velorin
