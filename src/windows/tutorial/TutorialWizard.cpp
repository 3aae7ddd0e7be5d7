// The Tutorial Wizard: loads and unloads its window, `Wiz`.
#include "windows/tutorial/TutorialWizard.h"

#include "platform/MessageLoop.h"
#include "session/Session.h"
#include "tutorial/WizardDesk.h"
#include "windows/frame/ToolWindows.h"
#include "windows/help/frminfo.h"
#include "windows/tutorial/Wiz.h"

namespace velorin {

TutorialWizard::TutorialWizard(Session& session, std::unique_ptr<WizardDesk> wizardDesk,
                               ToolWindows& windows, frminfo& hints)
    : tutorial(session, *wizardDesk, *this),
      studio_(session.studio),
      wizardDesk_(std::move(wizardDesk)),
      windows_(windows),
      hints_(hints) {}

TutorialWizard::~TutorialWizard() = default;

Wiz& TutorialWizard::form() {
    if (form_)
        return *form_;
    form_ = std::make_unique<Wiz>(*this, studio_, windows_);
    Wiz& made = *form_;
    if (!studio_.platform.loop.isEnding())
        made.Form_Load(); // a program that is ending makes no files
    return made;
}

QWidget* TutorialWizard::window() {
    return form_.get();
}

QWidget& TutorialWizard::load() {
    return form();
}

void TutorialWizard::unload() {
    if (!form_)
        return;
    form_->Form_Unload();
    windows_.closed.destroyLater(std::move(form_));
}

bool TutorialWizard::Check1() {
    return form().Check1->isChecked();
}

float TutorialWizard::Left() {
    return form().place.Left();
}

float TutorialWizard::Top() {
    return form().place.Top();
}

float TutorialWizard::labelTop(int lesson, int step) {
    return form().labelTop(lesson, step);
}

bool TutorialWizard::showLesson(const std::string& text, float left, float top) {
    return hints_.showLesson(text, left, top);
}

/// The first step begins the lesson again.
void TutorialWizard::stepDone(int lesson, int step) {
    if (step == 0)
        std::erase_if(done_, [lesson](const auto& one) { return one.first == lesson; });
    done_.emplace(lesson, step);
    if (form_)
        form_->showDone(lesson);
}

} // namespace velorin
