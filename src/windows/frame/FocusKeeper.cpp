// Tracks which control has the focus and runs the focus handlers in order.
#include "windows/frame/FocusKeeper.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>

namespace velorin {

namespace {

/// True for a key by which the user moves the focus. In a group of options the arrow keys do; the
/// reason is that of the Tab key then, too.
bool movesFocus(QEvent& event) {
    switch (static_cast<QKeyEvent&>(event).key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return qobject_cast<QAbstractButton*>(QApplication::focusWidget()) != nullptr;
    default:
        return false;
    }
}

/// False for dialogs, menus and open lists: they leave the focus of the program's windows as it
/// was.
bool belongsToProgramWindow(const QWidget& control) {
    const QWidget* window = control.window();
    const Qt::WindowType type = window->windowType();
    return type != Qt::Popup && type != Qt::ToolTip &&
           qobject_cast<const QDialog*>(window) == nullptr;
}

} // namespace

FocusKeeper::FocusKeeper() {
    qApp->installEventFilter(this);
}

FocusKeeper::~FocusKeeper() = default;

void FocusKeeper::give(QWidget* control) {
    if (control == current_)
        choose(control);
    if (control == nullptr || control == current_ || !control->isEnabled() || !control->isVisible())
        return;
    control->setFocus(Qt::OtherFocusReason);
    moveTo(control);
}

void FocusKeeper::moveTo(QWidget* control, bool byTab) {
    const QPointer<QWidget> old = current_;
    const QPointer<QWidget> next = control;
    current_ = control;
    waiting_ = byTab && control == passed_ ? control : nullptr;
    std::erase_if(visited_, [](const QPointer<QWidget>& one) { return one.isNull(); });
    if (!isVisited(control))
        visited_.emplace_back(control);
    if (old)
        if (const auto known = handlers_.find(old); known != handlers_.end() && known->second.lost)
            known->second.lost();
    if (!next || current_ != next)
        return; // the old control's handler has moved the focus
    if (!isWaiting(next))
        got(next);
}

void FocusKeeper::got(QWidget* control) {
    if (const auto known = handlers_.find(control); known != handlers_.end() && known->second.got)
        known->second.got();
}

bool FocusKeeper::isWaiting(const QWidget* control) const {
    return control != nullptr && control == waiting_;
}

void FocusKeeper::choose(QWidget* control) {
    if (!isWaiting(control))
        return;
    waiting_ = nullptr;
    got(control);
}

void FocusKeeper::enable(QWidget& control, bool enabled) {
    QWidget* const window = control.window();
    QWidget* const holder = window->focusWidget();
    if (!enabled && holder != nullptr && holder != window &&
        (holder == &control || control.isAncestorOf(holder))) {
        disabled_.push_back({&control, holder});
        window->setFocus(Qt::OtherFocusReason);
    }
    control.setEnabled(enabled);
    if (!enabled)
        return;
    const auto known = std::ranges::find_if(
        disabled_, [&](const Disabled& one) { return one.control == &control; });
    if (known == disabled_.end())
        return;
    const QPointer<QWidget> back = known->holder;
    disabled_.erase(known);
    // The reason that Qt uses after a menu: the control then shows its focus ring if it had one.
    if (back && (window->focusWidget() == nullptr || window->focusWidget() == window))
        back->setFocus(Qt::PopupFocusReason);
}

void FocusKeeper::onGot(QWidget* control, std::function<void()> handler) {
    handlersOf(control).got = std::move(handler);
}

void FocusKeeper::onLost(QWidget* control, std::function<void()> handler) {
    handlersOf(control).lost = std::move(handler);
}

bool FocusKeeper::isVisited(const QWidget* control) const {
    return std::ranges::any_of(visited_, [control](const auto& one) { return one == control; });
}

FocusKeeper::Handlers& FocusKeeper::handlersOf(QWidget* control) {
    const auto [place, isNew] = handlers_.try_emplace(control);
    if (isNew)
        connect(control, &QObject::destroyed, this,
                [this](QObject* gone) { handlers_.erase(gone); });
    return place->second;
}

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (movesFocus(*event))
            tabPressed_ = true;
        break;
    case QEvent::KeyRelease:
        tabPressed_ = false;
        break;
    case QEvent::FocusIn:
        if (auto* control = qobject_cast<QWidget*>(watched))
            return followWindowSystem(control, static_cast<QFocusEvent*>(event)->reason());
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool FocusKeeper::followWindowSystem(QWidget* control, Qt::FocusReason reason) {
    if (control == current_ || !belongsToProgramWindow(*control))
        return false;
    const bool isTab = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    const bool isUsers = reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason ||
                         (isTab && tabPressed_);
    const bool isFirstOfWindow = reason == Qt::ActiveWindowFocusReason && !isVisited(control);
    if (isUsers && !control->isWindow()) {
        moveTo(control, isTab);
        return false;
    }
    if ((!isTab || tabPressed_) && (!isFirstOfWindow || control->isWindow()))
        return false;
    // The focused control was disabled or hidden, or a window became active in which the user has
    // not chosen a control yet. The window itself takes the focus, so that no key presses a button
    // that the user did not choose. The event is already outdated, so the control does not get it.
    control->window()->setFocus(Qt::OtherFocusReason);
    return !control->isWindow();
}

} // namespace velorin
