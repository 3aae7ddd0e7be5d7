// `Wiz`, the Tutorial Wizard: its load, its end and its handlers.
#include "tutorial/Wiz.h"

#include "controls/DescribedControls.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "score/Studio.h"
#include "shell/SettingValues.h"
#include "shell/ToolDesk.h"
#include "tutorial/Lesson.h"
#include "tutorial/StepLabel.h"
#include "tutorial/TutorialWizard.h"
#include "tutorial/WizardDesk.h"

#include <QCursor>
#include <QEvent>

namespace velorin {

namespace {

constexpr const char* title = " Tutorial Wizard";
constexpr ToolFrame::Face face{"Wiz", title, "main-12-tutorial.svg", QSize(668, 470)};

} // namespace

Wiz::Wiz(TutorialWizard& owner, Studio& studio, WizardDesk& wizardDesk, ToolDesk& desk)
    : ToolFrame(face, desk.frames()),
      owner_(owner),
      studio_(studio),
      wizardDesk_(wizardDesk),
      desk_(desk) {
    setWindowTitle(QLatin1String(title));
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    SSTab1->setGeometry(8, 34, 652, 396);
    for (int lesson = 0; lesson < lessonCount; ++lesson)
        makeLesson(lesson);
    makeFoot();
    describeControls(*this, face.name);
    onClose = [this] { imgTitleClose_Click(); };
    onActivate = [this] { Form_Activate(); };
    desk_.addKeys(*this);
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

/// What an earlier lesson left, and has perhaps been changed since, makes way.
void Wiz::renewSamples() {
    for (int number = 101; number <= 105; ++number) {
        const std::string name =
            studio_.platform.programFolder + "\\media\\" + std::to_string(number) + ".sng";
        if (wizardDesk_.FileExists(name))
            wizardDesk_.p_DestroyFile(name);
    }
    wizardDesk_.ExtractSamples();
}

void Wiz::Form_Unload() {
    studio_.run.WizOpen = flagClear;
    savePlace(studio_.platform.settings, "Wiz");
}

void Wiz::Form_Activate() {
    desk_.noteActiveToolbar("Wiz");
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

float Wiz::labelTop(int lesson, int step) const {
    const StepLabel* label =
        stepLabels.at(static_cast<std::size_t>(lesson)).at(static_cast<std::size_t>(step));
    return static_cast<float>(label->y() * platform::twipsPerPixel);
}

// A hint that comes up takes the mouse away from a panel under the pointer; the step that it
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
