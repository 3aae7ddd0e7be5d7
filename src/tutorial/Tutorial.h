// The tutorial: what happens when a step of a lesson is clicked.
#pragma once

#include <string>

namespace velorin {

class WizardDesk;
class WizardView;
struct Step;
struct Studio;

/// It has no state: how far a lesson has come is told by the score and the windows, so that the
/// steps may be clicked in any order, twice, and one while another waits. Everything runs with
/// failures left out: the act that fails does nothing and the next one runs.
class Tutorial {
public:
    Tutorial(Studio& studio, WizardDesk& desk, WizardView& view)
        : studio_(studio), desk_(desk), view_(view) {}

    // One for each lesson; `index` is the step, and one that the lesson does not have does nothing.
    void L1_Click(int index);  ///< Composition
    void L2_Click(int index);  ///< Polyphonics
    void Lp1_Click(int index); ///< Percussion
    void L1E_Click(int index); ///< Editing
    void L1R_Click(int index); ///< Recording
    void L1M_Click(int index); ///< Midi
    void L1S_Click(int index); ///< Setup

    /// Explains the step, unless "Show Tips" is clear, and performs it, unless the user declines it
    /// with the Escape key. Lesson [0, 7).
    void performStep(int lesson, int index);

    /// Waits for 0.5 seconds and serves events meanwhile: the pace at which the user can follow.
    void pause1();

    // For the acts of the steps. A sample is named from the program's folder on:
    // "\media\101.sng".
    void loadSample(const char* sample); ///< and deletes its file, as it is loaded now
    void openSample(const char* sample); ///< and leaves the file
    [[nodiscard]] std::string sampleName(const char* sample) const; ///< the full name
    [[nodiscard]] WizardDesk& desk() { return desk_; }
    [[nodiscard]] bool isEnding() const;

private:
    [[nodiscard]] bool explain(const Step& step, int lesson, int index);
    void perform(const Step& step);

    Studio& studio_;
    WizardDesk& desk_;
    WizardView& view_;
};

/// What the hint window says before the step is performed.
[[nodiscard]] std::string hintText(const Step& step);

} // namespace velorin
