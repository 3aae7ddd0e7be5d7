// `Wiz`, the Tutorial Wizard: seven tabs of numbered steps, each of which is performed by a click.
#pragma once

#include "shell/ToolFrame.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QTabWidget>

#include <vector>

namespace velorin {

class StepLabel;
class ToolDesk;
class TutorialWizard;
class WizardDesk;
struct Studio;

/// Every control carries its name as object name, the step labels as elements of their array:
/// "L1(0)". What a step does lives outside, in `Tutorial`, as the window may be closed while one
/// runs.
class Wiz : public ToolFrame {
    Q_OBJECT

public:
    Wiz(TutorialWizard& owner, Studio& studio, WizardDesk& wizardDesk, ToolDesk& desk);

    /// Places the window and makes way for fresh sample files, which takes 0.2 seconds for each
    /// file of an earlier lesson; events are served meanwhile. The window stays hidden.
    void Form_Load();
    void Form_Unload(); ///< saves the place
    void Form_Activate();
    void Check1_Click(); ///< saves the box
    void imgTitleClose_Click();

    // Hover: the label under the mouse is the only one of its lesson that is highlighted.
    void stepMouseMove(int lesson, int step);
    void lessonMouseMove(int lesson); ///< over a title or a panel: none is

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
    WizardDesk& wizardDesk_;
    ToolDesk& desk_;
};

} // namespace velorin
