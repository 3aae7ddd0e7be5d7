// What happens when a step of a lesson is clicked.
#include "tutorial/Tutorial.h"

#include "platform/CaseBlind.h"
#include "platform/MessageLoop.h"
#include "score/FileHelpers.h"
#include "score/Studio.h"
#include "tutorial/Lesson.h"
#include "tutorial/WizardDesk.h"
#include "tutorial/WizardView.h"

namespace velorin {

namespace {

// Where the hint stands by the wizard and the step's label, in twips: over the window's left part,
// below the step.
constexpr float hintLeft = -500.0F;
constexpr float hintTop = 1500.0F;

constexpr const char* closing =
    "Close this window to continue. (Double-click on it or click the X button).This step will then "
    "be performed automatically.";

/// The pointer that the step asks for; it goes back however the step ends.
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

void Tutorial::performStep(int lesson, int index) {
    const std::vector<Step>& steps = lessons().at(static_cast<std::size_t>(lesson)).steps;
    if (index < 0 || index >= static_cast<int>(steps.size()))
        return;
    const Step& step = steps[static_cast<std::size_t>(index)];
    if (!view_.Check1() || explain(step, lesson, index))
        perform(step);
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
    yieldFor(studio_.platform, paceMs);
}

void Tutorial::loadSample(const char* sample) {
    openSample(sample);
    desk_.p_DestroyFile(sampleName(sample));
}

void Tutorial::openSample(const char* sample) {
    const std::string name = sampleName(sample);
    if (!desk_.FileExists(name))
        desk_.ExtractSamples();
    desk_.OpenFile(name);
}

std::string Tutorial::sampleName(const char* sample) const {
    return studio_.platform.programFolder + platform::shownPath(sample);
}

bool Tutorial::isEnding() const {
    return studio_.platform.loop.isEnding();
}

} // namespace velorin
