// The tutorial: explains and performs the step of a lesson that is clicked.
#include "tutorial/Tutorial.h"

#include "platform/MessageLoop.h"
#include "platform/PathLookup.h"
#include "session/Session.h"
#include "studio/FileHelpers.h"
#include "tutorial/Lesson.h"
#include "tutorial/WizardDesk.h"
#include "tutorial/WizardView.h"

namespace velorin {

namespace {

// Offset of the hint from the wizard and the step's label, in twips: left of the window's edge,
// below the step.
constexpr float hintLeft = -500.0F;
constexpr float hintTop = 1500.0F;

// Rule: there is no blank before "This". Held by tutorial/composition.
constexpr const char* closing =
    "Close this window to continue. (Double-click on it or click the X button).This step will then "
    "be performed automatically.";

/// Shows the pointer that the step asks for, and restores it however the step ends.
class PointerDuring {
public:
    PointerDuring(WizardDesk& desk, StepPointer pointer)
        : desk_(desk), isHourglass_(pointer == StepPointer::hourglass) {
        if (isHourglass_)
            desk_.showHourglass(true);
    }
    ~PointerDuring() {
        if (isHourglass_)
            desk_.showHourglass(false);
    }
    PointerDuring(const PointerDuring&) = delete;
    PointerDuring& operator=(const PointerDuring&) = delete;

private:
    WizardDesk& desk_;
    bool isHourglass_;
};

} // namespace

std::string hintText(const Step& step) {
    std::string text;
    for (const char* piece : step.text)
        text.append(piece).append("\r\n");
    return text + closing;
}

Tutorial::Tutorial(Session& session, WizardDesk& desk, WizardView& view)
    : samples(session.studio), session_(session), desk_(desk), view_(view) {}

void Tutorial::L1_Click(int index) {
    performStep(LessonIndex::composition, index);
}

void Tutorial::L2_Click(int index) {
    performStep(LessonIndex::polyphonics, index);
}

void Tutorial::Lp1_Click(int index) {
    performStep(LessonIndex::percussion, index);
}

void Tutorial::L1E_Click(int index) {
    performStep(LessonIndex::editing, index);
}

void Tutorial::L1R_Click(int index) {
    performStep(LessonIndex::recording, index);
}

void Tutorial::L1M_Click(int index) {
    performStep(LessonIndex::midi, index);
}

void Tutorial::L1S_Click(int index) {
    performStep(LessonIndex::setup, index);
}

// Rule: a step that is clicked while another one waits runs inside it; the first then goes on. Held
// by tutorial/breaking_off.
void Tutorial::performStep(int lesson, int index) {
    const std::vector<Step>& steps = lessons().at(static_cast<std::size_t>(lesson)).steps;
    if (index < 0 || index >= static_cast<int>(steps.size()))
        return;
    const Step& step = steps[static_cast<std::size_t>(index)];
    if (view_.Check1() && !explain(step, lesson, index))
        return;
    if (index == 0 || step.mode == StepMode::drawing)
        goToDrawMode();
    perform(step);
    if (!isEnding())
        view_.stepDone(lesson, index);
}

// A lesson that begins in select mode would select columns where its steps draw notes.
void Tutorial::goToDrawMode() {
    if (isEnding() || session_.studio.run.EditMode != editMode::select)
        return;
    desk_.toggleEditMode();
    pause1();
}

bool Tutorial::explain(const Step& step, int lesson, int index) {
    return view_.showLesson(hintText(step), view_.Left() + hintLeft,
                            view_.Top() + view_.labelTop(lesson, index) + hintTop);
}

// The program may have ended during the hint or during any act that waits.
void Tutorial::perform(const Step& step) {
    const PointerDuring pointer(desk_, step.pointer);
    for (const Act& act : step.acts) {
        if (isEnding())
            return;
        act(*this);
    }
}

void Tutorial::pause1() {
    constexpr int paceMs = 500;
    yieldFor(session_.studio.platform, paceMs);
}

// Rule: a sample file that exists is loaded as it is, damaged or not, and deleted; the next load
// makes a fresh one. Held by tutorial/bad_samples.
void Tutorial::loadSample(const char* sample) {
    openSample(sample);
    samples.p_DestroyFile(sampleName(sample));
}

void Tutorial::openSample(const char* sample) {
    const std::string name = sampleName(sample);
    if (!samples.FileExists(name))
        samples.ExtractSamples();
    session_.files.OpenFile(name);
}

std::string Tutorial::sampleName(const char* sample) const {
    return session_.studio.platform.programFolder + platform::shownPath(sample);
}

bool Tutorial::isEnding() const {
    return session_.studio.platform.loop.isEnding();
}

} // namespace velorin
