// Makes and places the controls of `Wiz`.
#include "tutorial/Lesson.h"
#include "windows/frame/PlacedControls.h"
#include "windows/texts/DescribedControls.h"
#include "windows/tutorial/StepLabel.h"
#include "windows/tutorial/TutorialWizard.h"
#include "windows/tutorial/Wiz.h"

#include <QIcon>
#include <QPainter>

#include <array>
#include <string_view>

namespace velorin {

namespace {

constexpr std::array<const char*, lessonCount> panelNames{
    "Picbac1", "Picbac2", "Picture1", "Picture2", "Picture3", "Picture4", "Picture5"};

constexpr std::array<const char*, lessonCount> lessonIcons{
    "edit-11-mode-draw", "main-04-rightclick-polynote", "lesson-percussion",
    "edit-13-cut",       "main-11-recording",           "lesson-midi",
    "main-09-setup"};

// Step k of a panel, in pixels:
//
//   12  32                         412
//    +---------------------------+ 50 + 24 k
//    | 2. Add  notes ...         |
//    +--+------------------------+
//       | a. Select ...          |
constexpr int firstStepTop = 50;
constexpr int stepHeight = 24;
constexpr int stepLeft = 12;
constexpr int stepRight = 412;
constexpr int subStepLeft = 32;

/// "a. ..." to "f. ..." and optional steps are indented.
bool isSubStep(std::string_view caption) {
    const bool isLettered =
        caption.size() > 1 && caption[0] >= 'a' && caption[0] <= 'f' && caption[1] == '.';
    return isLettered || caption.starts_with("(Optional)");
}

/// The lesson Midi has a heading before its steps on playing. It is not a step.
constexpr int stepAfterHeading = 2;
constexpr const char* midiHeading = "To play the MID file:";

QRect lineRect(int line, int left) {
    return {left, firstStepTop + stepHeight * line, stepRight - left, stepHeight};
}

QPixmap faded(const QString& icon, int side, qreal ratio) {
    constexpr qreal opacity = 0.16;
    QPixmap picture(QSize(side, side) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(opacity);
    QIcon(icon).paint(&painter, QRect(0, 0, side, side));
    return picture;
}

} // namespace

void Wiz::makeLesson(int lesson) {
    const auto index = static_cast<std::size_t>(lesson);
    const Lesson& table = lessons()[index];
    auto* const page = new QWidget(SSTab1);
    SSTab1->addTab(page, QLatin1String(table.tab));
    auto* const panel = new QFrame(page);
    panel->setObjectName(panelNames[index]);
    panel->setProperty("role", "panel");
    panel->setGeometry(8, 8, 634, 351);

    constexpr int pictureSide = 144;
    auto* const picture = new QLabel(panel);
    picture->setPixmap(faded(QStringLiteral(":/look/%1.svg").arg(QLatin1String(lessonIcons[index])),
                             pictureSide, devicePixelRatioF()));
    picture->setAccessibleName(QLatin1String(table.title));
    picture->setGeometry(470, 190, pictureSide, pictureSide);
    QLabel* const heading =
        makeLabel(panel, QRect(16, 10, 602, 24), QLatin1String(table.title), "lesson");
    heading->setObjectName(QStringLiteral("Ltit%1").arg(lesson + 1));
    auto* const line = new QFrame(panel);
    line->setStyleSheet("background: #444A86;");
    line->setGeometry(16, 40, 602, 1);
    for (QWidget* quiet : {static_cast<QWidget*>(panel), static_cast<QWidget*>(heading),
                           static_cast<QWidget*>(picture)}) {
        quiet->setProperty("lesson", lesson);
        quiet->setMouseTracking(true);
        quiet->installEventFilter(this);
    }
    makeSteps(lesson, panel);
}

void Wiz::makeSteps(int lesson, QFrame* panel) {
    const Lesson& table = lessons()[static_cast<std::size_t>(lesson)];
    std::vector<StepLabel*>& labels = stepLabels.emplace_back();
    int line = 0;
    for (int step = 0; step < static_cast<int>(table.steps.size()); ++step) {
        if (lesson == LessonIndex::midi && step == stepAfterHeading)
            makeLabel(panel, lineRect(line++, stepLeft + 12), QLatin1String(midiHeading),
                      "heading");
        const char* caption = table.steps[static_cast<std::size_t>(step)].caption;
        auto* const label = new StepLabel(QLatin1String(caption), panel);
        label->setObjectName(elementName(table.labels, step));
        label->setGeometry(lineRect(line++, isSubStep(caption) ? subStepLeft : stepLeft));
        label->onClick = [&owner = owner_, lesson, step] { owner.performStep(lesson, step); };
        label->onMove = [this, lesson, step] { stepMouseMove(lesson, step); };
        label->setProperty("lesson", lesson);
        labels.push_back(label);
    }
}

void Wiz::makeFoot() {
    makeLabel(this, QRect(16, 436, 360, 24),
              QStringLiteral("*Click on each step to perform the function"), "note")
        ->setObjectName("Label4");
    Check1 = new QCheckBox(QStringLiteral("Show Tips"), this);
    Check1->setObjectName("Check1");
    Check1->setGeometry(562, 436, 98, 24);
}

} // namespace velorin
