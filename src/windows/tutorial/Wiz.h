// `Wiz`, the Tutorial Wizard: seven tabs of numbered steps. A click performs a step.
//
//   SSTab1           the tabs
//   L1(i), L2(i)     the steps of the lessons Composition and Polyphonics
//   LP1(i), L1E(i)   of Percussion and Editing
//   L1R(i), L1M(i)   of Recording and Midi
//   L1S(i)           of Setup
//   Ltit1 to Ltit7   the titles of the lessons
//   Picbac1, Picbac2, Picture1 to Picture5  the panels of the lessons
//   Check1           "Show Tips"
//   Label4           the line below the tabs
#pragma once

#include "windows/frame/ToolFrame.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QTabWidget>

#include <vector>

namespace velorin {

class StepLabel;
class ToolWindows;
class TutorialWizard;
struct Studio;

/// Every control has its name as object name, the step labels as elements of their array: "L1(0)".
/// `Tutorial` performs the steps, since the window may be closed while one runs.
class Wiz : public ToolFrame {
    Q_OBJECT

public:
    Wiz(TutorialWizard& owner, Studio& studio, ToolWindows& windows);

    /// Places the window and makes new sample files. Deleting a file of an earlier lesson takes 0.2
    /// seconds, in which events are processed. The window stays hidden.
    void Form_Load();
    void Form_Unload(); ///< saves the place
    void Form_Activate();
    void Check1_Click(); ///< saves the box
    void imgTitleClose_Click();

    // Hover: only the label under the pointer is highlighted in its lesson.
    void stepMouseMove(int lesson, int step);
    void lessonMouseMove(int lesson); ///< over a title or a panel: highlights none

    void showDone(int lesson); ///< marks the steps of the lesson that are done

    [[nodiscard]] float labelTop(int lesson, int step) const; ///< in its panel, twips

    QTabWidget* SSTab1 = nullptr;
    QCheckBox* Check1 = nullptr;                     ///< "Show Tips"
    std::vector<std::vector<StepLabel*>> stepLabels; ///< by lesson and step

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeLesson(int lesson);
    void makeSteps(int lesson, QFrame* panel);
    void makeFoot();
    void placeWindow();
    void renewSamples();
    void highlight(int lesson, int step);

    TutorialWizard& owner_;
    Studio& studio_;
    ToolWindows& windows_;
};

} // namespace velorin
