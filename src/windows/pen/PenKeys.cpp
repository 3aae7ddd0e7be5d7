// The keys of the pen, and what else reaches it as events.
#include "windows/pen/Pen.h"

#include "drawing/CellGrid.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace velorin {

namespace {

constexpr int linesOfOctave = 12;
constexpr int leftPenButton = 1;
constexpr int rightPenButton = 2;

bool isPress(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Delete;
}

bool isMove(int key, bool isControl) {
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return !isControl;
    default:
        return false;
    }
}

bool isControl(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::ControlModifier);
}

/// With other modifiers the keys are not those of the pen. A pen that is not shown has no place to
/// press at.
bool isPenKey(const QKeyEvent& event, bool isShown) {
    const Qt::KeyboardModifiers further =
        event.modifiers() & ~(Qt::KeypadModifier | Qt::ControlModifier);
    if (further != Qt::NoModifier)
        return false;
    return isMove(event.key(), isControl(event)) ||
           (isShown && isPress(event.key()) && !isControl(event));
}

class MousePressWatch final : public QObject {
public:
    explicit MousePressWatch(std::function<void(const QEvent&)> onPress)
        : onPress_(std::move(onPress)) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress)
            onPress_(*event);
        return false;
    }

private:
    std::function<void(const QEvent&)> onPress_;
};

} // namespace

/// Only while the pen is shown: the watch sees every event of the program.
void Pen::watchMouse(bool isShown) {
    QCoreApplication* const application = QCoreApplication::instance();
    if (!isShown)
        return application->removeEventFilter(mouse_.get());
    if (!mouse_)
        mouse_ = std::make_unique<MousePressWatch>([this](const QEvent& press) {
            if (!strokes_.isOwn(press))
                putAway();
        });
    application->installEventFilter(mouse_.get());
}

bool Pen::eventFilter(QObject* watched, QEvent* event) {
    if (const std::optional<Tableau> tableau = tableauOf(watched))
        return filterBox(*tableau, *event);
    if (watched == sheet_.music.window())
        return filterLockedKey(*event);
    return false;
}

bool Pen::filterBox(Tableau tableau, QEvent& event) {
    switch (event.type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return filterKey(tableau, event);
    case QEvent::MouseMove: // a mouse that draws does not hover meanwhile
        return isHeld() && !strokes_.isOwn(event);
    case QEvent::FocusIn: {
        const Qt::FocusReason reason = static_cast<QFocusEvent&>(event).reason();
        gotFocus(tableau, reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason);
        break;
    }
    case QEvent::FocusOut:
        lostFocus(tableau, static_cast<QFocusEvent&>(event).reason() == Qt::PopupFocusReason);
        break;
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        fit();
        break;
    default:
        break;
    }
    return false;
}

bool Pen::filterKey(Tableau tableau, QEvent& event) {
    auto& keys = static_cast<QKeyEvent&>(event);
    if (event.type() == QEvent::KeyRelease)
        return !keys.isAutoRepeat() && releaseKey(keys.key());
    const bool isEscape = keys.key() == Qt::Key_Escape && keys.modifiers() == Qt::NoModifier;
    if (!isPenKey(keys, isShown()) && !(isEscape && isShown()))
        return false;
    event.accept();
    if (event.type() == QEvent::ShortcutOverride)
        return true;
    if (isEscape)
        putAway();
    else if (!keys.isAutoRepeat() || !isPress(keys.key()))
        pressKey(tableau, keys.key(), isControl(keys));
    return true;
}

/// The keys of a tableau that is locked while the song plays go to the window.
bool Pen::filterLockedKey(QEvent& event) {
    if (event.type() != QEvent::KeyPress || !left_ || strokes_.box(*left_)->isEnabled())
        return false;
    const auto& keys = static_cast<const QKeyEvent&>(event);
    const QWidget* const window = sheet_.music.window();
    const QWidget* const holder = window->focusWidget();
    if (!isPenKey(keys, true) || (holder != nullptr && holder != window))
        return false;
    if (!keys.isAutoRepeat() && onRefused)
        onRefused();
    return true;
}

void Pen::pressKey(Tableau tableau, int key, bool isControl) {
    if (shown_ != tableau) { // the first arrow only shows it
        moveTo(placeIn(tableau));
        return;
    }
    const int across = isControl ? columnsOfBar : 1;
    switch (key) {
    case Qt::Key_Left:
        step(-across, 0);
        break;
    case Qt::Key_Right:
        step(across, 0);
        break;
    case Qt::Key_Up:
        step(0, -1);
        break;
    case Qt::Key_Down:
        step(0, 1);
        break;
    case Qt::Key_PageUp:
        step(0, -linesOfOctave);
        break;
    case Qt::Key_PageDown:
        step(0, linesOfOctave);
        break;
    case Qt::Key_Home:
        step(-place_.column, 0);
        break;
    case Qt::Key_End:
        step(strokes_.reach(tableau).columns - 1 - place_.column, 0);
        break;
    default:
        press(key == Qt::Key_Delete ? rightPenButton : leftPenButton);
    }
}

void Pen::step(int columns, int lines) {
    Place target = place_;
    target.column += columns;
    target.line += lines;
    moveTo(target);
}

bool Pen::releaseKey(int key) {
    const int button = key == Qt::Key_Delete ? rightPenButton : leftPenButton;
    if (!isPress(key) || !isHeld() || strokes_.heldButton() != button)
        return false;
    release();
    return true;
}

} // namespace velorin
