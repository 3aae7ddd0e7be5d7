// The Tutorial Wizard: loads and unloads its window, `Wiz`. The lessons' steps run here, so a step
// goes on after the window is closed.
#pragma once

#include "tutorial/Tutorial.h"
#include "tutorial/WizardView.h"
#include "windows/frame/ToolWindow.h"

#include <memory>
#include <set>
#include <utility>

namespace velorin {

class Session;
class ToolWindows;
class Wiz;
class WizardDesk;
class frminfo;
struct Studio;

class TutorialWizard final : public ToolWindow, private WizardView {
public:
    TutorialWizard(Session& session, std::unique_ptr<WizardDesk> wizardDesk, ToolWindows& windows,
                   frminfo& hints);
    ~TutorialWizard() override;

    /// The window; the first use loads it, hidden. The load processes events, so the window may be
    /// closed when this returns. It is destroyed only after the caller has returned.
    Wiz& form();

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

    void performStep(int lesson, int step) { tutorial.performStep(lesson, step); }

    /// True if the step was performed in this run of the program, and the lesson was not begun
    /// again.
    [[nodiscard]] bool isDone(int lesson, int step) const {
        return done_.count({lesson, step}) > 0;
    }

    Tutorial tutorial;

private:
    bool Check1() override;
    float Left() override;
    float Top() override;
    float labelTop(int lesson, int step) override;
    bool showLesson(const std::string& text, float left, float top) override;
    void stepDone(int lesson, int step) override;

    Studio& studio_;
    std::unique_ptr<WizardDesk> wizardDesk_;
    ToolWindows& windows_;
    frminfo& hints_;
    std::unique_ptr<Wiz> form_;
    std::set<std::pair<int, int>> done_; ///< lesson and step
};

} // namespace velorin
