// Shows and unloads the tool windows, and keeps their stacking order and their places within reach.
#include "windows/frame/ToolWindows.h"

#include "platform/Desktop.h"
#include "platform/Platform.h"
#include "platform/PopupMenus.h"
#include "studio/Run.h"
#include "windows/frame/ToolFrame.h"
#include "windows/frame/ToolWindow.h"
#include "windows/texts/KeyTable.h"
#include "windows/texts/MenuTable.h"

#include <QApplication>
#include <QScreen>
#include <QShortcut>

#include <algorithm>
#include <utility>

namespace velorin {

namespace {

void moveTo(ToolFrame& window, QPoint place) {
    if (place != window.pos())
        window.place.moveTo(static_cast<float>(place.x() * platform::twipsPerPixel),
                            static_cast<float>(place.y() * platform::twipsPerPixel));
}

} // namespace

ToolWindows::ToolWindows(platform::Platform& platform, Run& run, HoldingLoop& loop)
    : closed(loop),
      platform_(platform),
      run_(run),
      order_{Tool::editing, Tool::setup, Tool::recording, Tool::tutorial} {
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &ToolWindows::watch);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &ToolWindows::lookSoon);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &ToolWindows::lookSoon);
}

void ToolWindows::add(Tool tool, ToolWindow& window) {
    tools_[static_cast<std::size_t>(tool)] = &window;
}

QWidget* ToolWindows::window(Tool tool) const {
    ToolWindow* const known = tools_[static_cast<std::size_t>(tool)];
    return known != nullptr ? known->window() : nullptr;
}

QWidget* ToolWindows::load(Tool tool) {
    ToolWindow* const known = tools_[static_cast<std::size_t>(tool)];
    if (known == nullptr)
        return nullptr;
    return loads_ ? &known->load() : known->window();
}

void ToolWindows::show(Tool tool) {
    if (!shows_)
        return;
    QWidget* const shown = load(tool);
    // A load may process events, so the window may be closed by now, or the program ended.
    if (shown == nullptr || !shows_ || shown != window(tool))
        return;
    if (auto* const framed = qobject_cast<ToolFrame*>(shown))
        moveBeside(*framed);
    shown->show();
    shown->raise();
    noteHighest(tool);
}

void ToolWindows::unload(Tool tool) {
    if (ToolWindow* const known = tools_[static_cast<std::size_t>(tool)])
        known->unload();
}

bool ToolWindows::isOpen(Tool tool) const {
    switch (tool) {
    case Tool::editing:
        return run_.Form2Open.isSet();
    case Tool::setup:
        return run_.Form3Open.isSet();
    case Tool::recording:
        return run_.RecordToolbarOpen.isSet();
    case Tool::tutorial:
        return run_.WizOpen.isSet();
    case Tool::history:
    case Tool::exporting:
        return window(tool) != nullptr; // it is loaded to be shown
    }
    return false;
}

void ToolWindows::HideToolbars() {
    for (const Tool tool : allTools)
        if (QWidget* const shown = window(tool); shown != nullptr && isOpen(tool))
            shown->hide();
}

void ToolWindows::ShowToolbars() {
    const std::vector<Tool> order = order_;
    for (const Tool tool : order)
        if (isOpen(tool))
            show(tool);
}

void ToolWindows::setTopMost(bool topMost) {
    for (const Tool tool : {Tool::recording, Tool::tutorial})
        if (QWidget* const open = window(tool))
            SetTopMost(*open, topMost);
}

void ToolWindows::noteMade(ToolFrame& window) {
    closed.noteMade(window);
    addArrangeKey(window);
    window.lblTitle->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(window.lblTitle, &QWidget::customContextMenuRequested, this,
            &ToolWindows::openTitleMenu);
    if (addKeys)
        addKeys(window);
}

void ToolWindows::noteActive(Tool tool) {
    active_ = tool;
    noteHighest(tool);
}

void ToolWindows::noteHighest(Tool tool) {
    std::erase(order_, tool);
    order_.push_back(tool);
}

void ToolWindows::hideWithMain() {
    for (const Tool tool : order_) {
        QWidget* const shown = window(tool);
        if (shown == nullptr || !shown->isVisible())
            continue;
        shown->hide();
        gone_.push_back(tool);
    }
}

void ToolWindows::showWithMain() {
    for (const Tool tool : std::exchange(gone_, {}))
        if (QWidget* const hidden = window(tool))
            hidden->show();
}

/// Moves a window that the user has not placed beside the others, if it would overlap one of them
/// and there is room.
void ToolWindows::moveBeside(ToolFrame& window) {
    if (!window.isUnplaced() || !platform_.desktop.standsWindowsApart())
        return;
    const QPoint place =
        placeBeside(window.geometry(), takenWithout(window), platform_.desktop.screens());
    moveTo(window, place);
}

std::vector<QRect> ToolWindows::takenWithout(const QWidget& window) const {
    std::vector<QRect> taken;
    for (const Tool tool : order_) {
        const QWidget* const other = this->window(tool);
        if (other != nullptr && other != &window && other->isVisible())
            taken.push_back(other->geometry());
    }
    return taken;
}

void ToolWindows::addArrangeKey(QWidget& window) {
    auto* const keys = new QShortcut(QKeySequence(QLatin1String(arrangeKey.keys)), &window);
    connect(keys, &QShortcut::activated, this, &ToolWindows::arrange);
}

void ToolWindows::openTitleMenu() {
    const std::string chosen =
        platform_.menus.PopupMenu(titleMenu, {{arrangeEntry.name, arrangeEntry.caption, false}});
    if (chosen == arrangeEntry.name)
        arrange();
}

void ToolWindows::arrange() {
    if (!shows_)
        return;
    const Screens screens = platform_.desktop.screens();
    std::vector<QRect> taken;
    for (const Tool tool : order_) {
        auto* const shown = qobject_cast<ToolFrame*>(window(tool));
        if (shown == nullptr || !shown->isVisible())
            continue;
        moveTo(*shown, placeBeside(shown->geometry(), taken, screens));
        taken.push_back(shown->geometry());
    }
}

void ToolWindows::watch(QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, &ToolWindows::lookSoon);
}

// Screens change one after the other, so one may have moved while another still has its old place.
// The check waits for the next turn of the event loop.
void ToolWindows::lookSoon() {
    if (std::exchange(looksSoon_, true))
        return;
    const auto look = [this] {
        looksSoon_ = false;
        comeIntoReach();
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

void ToolWindows::comeIntoReach() {
    if (!loads_)
        return;
    if (onScreensChanged)
        onScreensChanged();
    const Screens screens = platform_.desktop.screens();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* const tool = qobject_cast<ToolFrame*>(window))
            tool->comeIntoReach(screens);
}

} // namespace velorin
