// The Tutorial Wizard as the program holds it: its window, `Wiz`, is loaded by its first use, and
// the steps of the lessons run here, whatever becomes of the window.
#pragma once

#include "shell/ToolWindow.h"
#include "tutorial/Tutorial.h"
#include "tutorial/WizardView.h"

#include <memory>

namespace velorin {

class ToolDesk;
class Wiz;
class WizardDesk;
class frminfo;
struct Studio;

class TutorialWizard final : public ToolWindow, private WizardView {
public:
    TutorialWizard(Studio& studio, std::unique_ptr<WizardDesk> wizardDesk, ToolDesk& desk,
                   frminfo& hints);
    ~TutorialWizard() override;

    /// The window, loaded if it was not; it stays hidden. Its load lets events through, so the
    /// window may have been closed when this returns; it lives on until the caller has returned.
    Wiz& form();

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

    void performStep(int lesson, int step) { tutorial.performStep(lesson, step); }

    Tutorial tutorial;

private:
    bool Check1() override;
    float Left() override;
    float Top() override;
    float labelTop(int lesson, int step) override;
    bool showLesson(const std::string& text, float left, float top) override;

    Studio& studio_;
    std::unique_ptr<WizardDesk> wizardDesk_;
    ToolDesk& desk_;
    frminfo& hints_;
    std::unique_ptr<Wiz> form_;
};

} // namespace velorin
