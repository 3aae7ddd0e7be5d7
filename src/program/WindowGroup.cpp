// The tool windows around the main window.
#include "program/WindowGroup.h"

#include "platform/Desktop.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "shell/ToolFrame.h"

#include <QApplication>
#include <QScreen>

#include <utility>

namespace velorin {

WindowGroup::WindowGroup(Program& program, platform::Desktop& desktop)
    : program_(program), desktop_(desktop), order_{"Form2", "Form3", "Record", "Wiz"} {
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &WindowGroup::watch);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &WindowGroup::lookSoon);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &WindowGroup::lookSoon);
}

void WindowGroup::watch(QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, &WindowGroup::lookSoon);
}

// The screens change one after the other, and the place of one may have gone to another by then.
void WindowGroup::lookSoon() {
    if (std::exchange(looksSoon_, true))
        return;
    const auto look = [this] {
        looksSoon_ = false;
        comeIntoReach();
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

void WindowGroup::noteHighest(const QString& name) {
    if (order_.removeOne(name))
        order_.append(name);
}

void WindowGroup::hideWithMain() {
    for (const QString& name : order_) {
        QWidget* const window = program_.window(name, false);
        if (window == nullptr || !window->isVisible())
            continue;
        window->hide();
        gone_.append(name);
    }
}

void WindowGroup::showWithMain() {
    for (const QString& name : std::exchange(gone_, {}))
        if (QWidget* const window = program_.window(name, false))
            window->show();
}

void WindowGroup::standBeside(ToolFrame& window) {
    if (!window.isUnplaced() || !desktop_.standsWindowsApart())
        return;
    std::vector<QRect> taken;
    for (const QString& name : order_) {
        const QWidget* const other = program_.window(name, false);
        if (other != nullptr && other != &window && other->isVisible())
            taken.push_back(other->geometry());
    }
    const QPoint place = placeBeside(window.geometry(), taken, desktop_.screens());
    if (place != window.pos())
        window.place.moveTo(static_cast<float>(place.x() * platform::twipsPerPixel),
                            static_cast<float>(place.y() * platform::twipsPerPixel));
}

void WindowGroup::comeIntoReach() {
    if (program_.hasEnded())
        return;
    if (auto* const main = qobject_cast<Form1*>(program_.window("Form1", false)))
        main->comeIntoReach();
    const Screens screens = desktop_.screens();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* const tool = qobject_cast<ToolFrame*>(window))
            tool->comeIntoReach(screens);
}

} // namespace velorin
