// The tutorial: what happens when a step of a lesson is clicked.
#pragma once

#include "tutorial/SampleFiles.h"

#include <string>

namespace velorin {

class Session;
class WizardDesk;
class WizardView;
struct Step;

/// It has no state of its own: the score and the windows hold the progress of a lesson. So steps
/// may be clicked in any order, twice, and one while another waits. An act that fails does nothing
/// and the next one runs.
class Tutorial {
public:
    Tutorial(Session& session, WizardDesk& desk, WizardView& view);

    // One for each lesson; `index` is the step. A step that the lesson does not have does nothing.
    void L1_Click(int index);  ///< Composition
    void L2_Click(int index);  ///< Polyphonics
    void Lp1_Click(int index); ///< Percussion
    void L1E_Click(int index); ///< Editing
    void L1R_Click(int index); ///< Recording
    void L1M_Click(int index); ///< Midi
    void L1S_Click(int index); ///< Setup

    /// Explains the step if "Show Tips" is set, then performs it unless the user declined it with
    /// the Escape key. Lesson [0, 7). A step that needs draw mode, and the first step of a lesson,
    /// press the mode button first if columns are being selected.
    void performStep(int lesson, int index);

    /// Waits for 0.5 seconds and processes events: the pace at which the user can follow.
    void pause1();

    // For the acts of the steps. A sample is named from the program's folder on:
    // "\media\101.sng".
    void loadSample(const char* sample);                            ///< and deletes its file
    void openSample(const char* sample);                            ///< and keeps its file
    [[nodiscard]] std::string sampleName(const char* sample) const; ///< the full name
    [[nodiscard]] Session& session() { return session_; }
    [[nodiscard]] WizardDesk& desk() { return desk_; }
    [[nodiscard]] bool isEnding() const;

    SampleFiles samples;

private:
    [[nodiscard]] bool explain(const Step& step, int lesson, int index);
    void goToDrawMode();
    void perform(const Step& step);

    Session& session_;
    WizardDesk& desk_;
    WizardView& view_;
};

/// The text of the hint window before the step is performed.
[[nodiscard]] std::string hintText(const Step& step);

} // namespace velorin
