// `Wiz`, the Tutorial Wizard: load, unload and handlers.
#include "windows/tutorial/Wiz.h"

#include "platform/Settings.h"
#include "platform/Text.h"
#include "studio/Studio.h"
#include "tutorial/Lesson.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/SettingValues.h"
#include "windows/frame/ToolWindows.h"
#include "windows/texts/DescribedControls.h"
#include "windows/tutorial/StepLabel.h"
#include "windows/tutorial/TutorialWizard.h"

#include <QCursor>
#include <QEvent>

namespace velorin {

namespace {

constexpr const char* title = " Tutorial Wizard";
constexpr ToolFrame::Face face{"Wiz", title, "main-12-tutorial.svg", QSize(668, 470)};

} // namespace

Wiz::Wiz(TutorialWizard& owner, Studio& studio, ToolWindows& windows)
    : ToolFrame(face, windows.frames), owner_(owner), studio_(studio), windows_(windows) {
    setWindowTitle(QLatin1String(title));
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    keepFocusOnTabs(*SSTab1);
    SSTab1->setGeometry(8, 34, 652, 396);
    for (int lesson = 0; lesson < lessonCount; ++lesson)
        makeLesson(lesson);
    makeFoot();
    describeControls(*this, face.name);
    for (int lesson = 0; lesson < lessonCount; ++lesson)
        showDone(lesson);
    onClose = [this] { imgTitleClose_Click(); };
    onActivate = [this] { Form_Activate(); };
    windows_.noteMade(*this);
    connect(Check1, &QCheckBox::toggled, this, &Wiz::Check1_Click);
}

void Wiz::Form_Load() {
    placeWindow();
    studio_.run.WizOpen = flagSet;
    renewSamples();
    const auto tips = platform::readInt16(
        studio_.platform.settings.GetSetting(settingsSection, "Show tips", "1"));
    Check1->setChecked(tips == 1);
    frame.SkinMainWindow(flagClear);
    SetTopMost(*this, true);
}

void Wiz::placeWindow() {
    const platform::SizePx screen = studio_.platform.desktop.screenSize();
    placeFrom(studio_.platform.settings, "Wiz", middleTwips(screen.width, width()),
              middleTwips(screen.height, height()), studio_.platform.desktop);
}

/// Replaces the sample files of an earlier lesson, which the user may have changed.
///
/// Rule: deleting a file waits 0.2 seconds, so opening the wizard takes a second if all five are
/// there. Held by tutorial/samples.
void Wiz::renewSamples() {
    SampleFiles& samples = owner_.tutorial.samples;
    for (int number = 101; number <= 105; ++number) {
        const std::string name =
            studio_.platform.programFolder + "\\media\\" + std::to_string(number) + ".sng";
        if (samples.FileExists(name))
            samples.p_DestroyFile(name);
    }
    samples.ExtractSamples();
}

void Wiz::Form_Unload() {
    studio_.run.WizOpen = flagClear;
    savePlace(studio_.platform.settings, "Wiz");
}

void Wiz::Form_Activate() {
    windows_.noteActive(Tool::tutorial);
}

void Wiz::Check1_Click() {
    studio_.platform.settings.SaveSetting(settingsSection, "Show tips",
                                          Check1->isChecked() ? "1" : "0");
}

void Wiz::imgTitleClose_Click() {
    owner_.unload();
}

void Wiz::stepMouseMove(int lesson, int step) {
    highlight(lesson, step);
}

void Wiz::lessonMouseMove(int lesson) {
    highlight(lesson, -1);
}

void Wiz::highlight(int lesson, int step) {
    const std::vector<StepLabel*>& labels = stepLabels.at(static_cast<std::size_t>(lesson));
    for (int other = 0; other < static_cast<int>(labels.size()); ++other)
        labels[static_cast<std::size_t>(other)]->setHighlighted(other == step);
}

void Wiz::showDone(int lesson) {
    const std::vector<StepLabel*>& labels = stepLabels.at(static_cast<std::size_t>(lesson));
    for (int step = 0; step < static_cast<int>(labels.size()); ++step)
        labels[static_cast<std::size_t>(step)]->setDone(owner_.isDone(lesson, step));
}

float Wiz::labelTop(int lesson, int step) const {
    const StepLabel* label =
        stepLabels.at(static_cast<std::size_t>(lesson)).at(static_cast<std::size_t>(step));
    return static_cast<float>(label->y() * platform::twipsPerPixel);
}

// A hint that opens under the pointer makes the panel lose the mouse. The step that the hint
// explains keeps its highlight.
bool Wiz::eventFilter(QObject* watched, QEvent* event) {
    const auto& panel = static_cast<const QWidget&>(*watched);
    const bool hasLeft = event->type() == QEvent::Leave &&
                         !panel.rect().contains(panel.mapFromGlobal(QCursor::pos()));
    if (event->type() == QEvent::MouseMove || hasLeft)
        lessonMouseMove(watched->property("lesson").toInt());
    return ToolFrame::eventFilter(watched, event);
}

} // namespace velorin
