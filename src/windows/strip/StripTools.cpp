// The free part of the strip.
#include "windows/strip/StripTools.h"

#include "windows/strip/StateLine.h"
#include "windows/texts/ControlTable.h"
#include "windows/texts/KeyTable.h"

#include <QTimer>

namespace velorin {

namespace {

struct Face {
    const char* control;
    const char* picture;
};

constexpr std::array<Face, stripButtons> faces{{
    {"stripUndo", "main-15-undo"},
    {"stripRedo", "main-16-redo"},
    {"stripHistory", "main-17-history"},
    {"stripExport", "main-18-export"},
}};

constexpr int buttonTop = 5;
constexpr int buttonSize = 36;
constexpr int arrowWidth = 24;
constexpr QSize titleButtonSize(26, 20);
constexpr int titleButtonTop = 3;
constexpr int arrowFromRight = 152;
constexpr int cutCommand = 100; ///< entries of cut buttons begin here

const Face& faceOf(StripCommand command) {
    return faces.at(static_cast<std::size_t>(command));
}

QString keysOfCommand(StripCommand command) {
    return QString::fromStdString(keysOf("Form1", faceOf(command).control));
}

PictureButton* makeArrow(QWidget* parent, const char* name) {
    auto* const arrow = new PictureButton(parent, QLatin1String(name), "glyph-overflow");
    arrow->setIconSize(QSize(16, 16));
    return arrow;
}

/// Entries of the history are sentences: "Note drawn on channel 1".
QString inSentence(const std::string& text) {
    QString words = QString::fromStdString(text);
    if (!words.isEmpty())
        words[0] = words[0].toLower();
    return words;
}

} // namespace

StripTools::StripTools(QWidget& window, QWidget& strip) : QObject(&window) {
    for (std::size_t i = 0; i < faces.size(); ++i) {
        auto* const made = new PictureButton(&strip, QLatin1String(faces.at(i).control),
                                             QLatin1String(faces.at(i).picture));
        made->setIconSize(QSize(24, 24));
        made->setGeometry(stripButtonLeft(static_cast<int>(i)), buttonTop, buttonSize, buttonSize);
        connect(made, &QToolButton::clicked, this, [this, i] {
            if (onCommand)
                onCommand(static_cast<StripCommand>(i));
        });
        buttons.at(i) = made;
    }
    button(StripCommand::undo).setEnabled(false);
    button(StripCommand::redo).setEnabled(false);
    line = new StateLine(&strip);
    arrow = makeArrow(&strip, "stripMore");
    arrowInTitle = makeArrow(&window, "stripMoreInTitle");
    arrowInTitle->setProperty("role", "title");
    for (PictureButton* const from : {arrow, arrowInTitle})
        connect(from, &QToolButton::clicked, this, [this, from] { openMenu(*from); });
}

PictureButton& StripTools::button(StripCommand command) const {
    return *buttons.at(static_cast<std::size_t>(command));
}

void StripTools::layOut(const StripPlan& plan, int windowWidth) {
    plan_ = plan;
    for (int i = 0; i < stripButtons; ++i)
        buttons.at(static_cast<std::size_t>(i))->setVisible(i < plan.buttons);
    line->place(windowWidth);
    line->setVisible(plan.hasLine);
    arrow->setGeometry(plan.arrowLeft, buttonTop, arrowWidth, buttonSize);
    arrow->setVisible(plan.arrow == StripPlan::Arrow::inStrip);
    arrowInTitle->setGeometry(
        QRect(QPoint(windowWidth - arrowFromRight, titleButtonTop), titleButtonSize));
    arrowInTitle->setVisible(plan.arrow == StripPlan::Arrow::inTitle);
}

void StripTools::showSteps(const std::string& undo, const std::string& redo, bool isLocked) {
    showStep(StripCommand::undo, undo, isLocked);
    showStep(StripCommand::redo, redo, isLocked);
}

void StripTools::showStep(StripCommand command, const std::string& text, bool isLocked) {
    PictureButton& shown = button(command);
    const bool isPossible = !text.empty() && !isLocked;
    QString words = QString::fromStdString(controlName("Form1", faceOf(command).control));
    if (isPossible)
        words += QStringLiteral(": ") + inSentence(text);
    else if (!text.empty())
        words += QStringLiteral(": not while the song plays");
    if (shown.accessibleName() != words)
        shown.setAccessibleName(words);
    shown.setToolTip(words + QStringLiteral(" (%1)").arg(keysOfCommand(command)));
    if (shown.isEnabled() != isPossible)
        enable(shown, isPossible);
}

std::vector<OverflowEntry> StripTools::entries() const {
    std::vector<OverflowEntry> all = cutButtons ? cutButtons() : std::vector<OverflowEntry>();
    for (OverflowEntry& entry : all)
        entry.command += cutCommand;
    if (!all.empty())
        all.push_back({});
    for (int i = plan_.buttons; i < stripButtons; ++i) {
        const auto command = static_cast<StripCommand>(i);
        const PictureButton& from = button(command);
        all.push_back({from.accessibleName(), keysOfCommand(command),
                       QLatin1String(faceOf(command).picture), from.isEnabled(), i});
    }
    return all;
}

void StripTools::run(int command) {
    if (command >= cutCommand)
        onCutButton(command - cutCommand);
    else if (onCommand)
        onCommand(static_cast<StripCommand>(command));
}

void StripTools::openMenu(PictureButton& from) {
    auto* const menu = new OverflowMenu(&from, entries());
    from.setDown(true);
    connect(menu, &QMenu::aboutToHide, &from, [&from] { from.setDown(false); });
    // The entry runs after the menu has closed: it may open a window or another menu.
    menu->onChosen = [this](int command) {
        QTimer::singleShot(0, this, [this, command] { run(command); });
    };
    menu->openBelow(from);
}

} // namespace velorin
