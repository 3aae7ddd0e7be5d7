// The Tutorial Wizard as the program holds it.
#include "tutorial/TutorialWizard.h"

#include "platform/MessageLoop.h"
#include "score/Studio.h"
#include "shell/ToolDesk.h"
#include "shell/frminfo.h"
#include "tutorial/Wiz.h"
#include "tutorial/WizardDesk.h"

namespace velorin {

TutorialWizard::TutorialWizard(Studio& studio, std::unique_ptr<WizardDesk> wizardDesk,
                               ToolDesk& desk, frminfo& hints)
    : tutorial(studio, *wizardDesk, *this),
      studio_(studio),
      wizardDesk_(std::move(wizardDesk)),
      desk_(desk),
      hints_(hints) {}

TutorialWizard::~TutorialWizard() = default;

Wiz& TutorialWizard::form() {
    if (form_)
        return *form_;
    form_ = std::make_unique<Wiz>(*this, studio_, *wizardDesk_, desk_);
    Wiz& made = *form_;
    if (!studio_.platform.loop.isEnding())
        made.Form_Load(); // a program that ends makes no files any more
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
    form_->hide();
    desk_.destroyLater(std::move(form_));
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

} // namespace velorin
