// Chooses random places and sends events to them, in the same way as the window system.
#include "RandomUser.h"

#include "windows/main/Form1.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <array>

namespace randomly {

using namespace velorin;

namespace {

struct Key {
    int key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

/// All shortcuts, keys that move the focus or change a control, and keys without effect.
const std::array<Key, 35> keys{{
    {Qt::Key_Space},
    {Qt::Key_Space},
    {Qt::Key_Space},
    {Qt::Key_Escape},
    {Qt::Key_P},
    {Qt::Key_P},
    {Qt::Key_F2},
    {Qt::Key_F1},
    {Qt::Key_C, Qt::ControlModifier},
    {Qt::Key_X, Qt::ControlModifier},
    {Qt::Key_V, Qt::ControlModifier},
    {Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier},
    {Qt::Key_N, Qt::ControlModifier},
    {Qt::Key_O, Qt::ControlModifier},
    {Qt::Key_S, Qt::ControlModifier},
    {Qt::Key_Tab},
    {Qt::Key_Tab},
    {Qt::Key_Backtab, Qt::ShiftModifier},
    {Qt::Key_Return},
    {Qt::Key_Enter},
    {Qt::Key_Up},
    {Qt::Key_Down},
    {Qt::Key_Left},
    {Qt::Key_Right},
    {Qt::Key_PageUp},
    {Qt::Key_PageDown},
    {Qt::Key_Home},
    {Qt::Key_End},
    {Qt::Key_Backspace},
    {Qt::Key_0},
    {Qt::Key_1},
    {Qt::Key_9},
    {Qt::Key_A},
    {Qt::Key_Minus},
    {Qt::Key_F10, Qt::ShiftModifier},
}};

/// Letters search the lists of instruments.
constexpr std::array<int, 8> listKeys{Qt::Key_Down,   Qt::Key_Up,       Qt::Key_Return,
                                      Qt::Key_Return, Qt::Key_Escape,   Qt::Key_1,
                                      Qt::Key_End,    Qt::Key_Backspace};

bool isOfTheProgram(const QWidget& window) {
    const Qt::WindowType type = window.windowType();
    return window.isVisible() && window.windowHandle() != nullptr && type != Qt::ToolTip &&
           type != Qt::Popup && type != Qt::SplashScreen;
}

QString textOf(const Key& key) {
    const bool isPlain = key.modifiers == Qt::NoModifier && key.key >= 0x20 && key.key < 0x7F;
    return isPlain ? QString(QChar(key.key)).toLower() : QString();
}

} // namespace

// The main window is chosen as often as all others together.
QWidget* RandomUser::anyWindow() {
    Form1& form1 = host_.program.form1();
    if (chance_.oneOf(2) && isOfTheProgram(form1))
        return &form1;
    QWidgetList windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (isOfTheProgram(*window))
            windows.push_back(window);
    }
    return windows.isEmpty() ? &form1 : windows.at(chance_.below(static_cast<int>(windows.size())));
}

// Controls of the main window by importance: the tableaux first.
QWidget* RandomUser::anyControlOf(QWidget& window) {
    Form1& form1 = host_.program.form1();
    if (&window == &form1) {
        const int share = chance_.below(100);
        if (share < 55)
            return form1.area->MusicBox;
        if (share < 68)
            return form1.area->Beatbox;
        if (share < 74)
            return form1.area->Pic1;
    }
    // The button that starts and stops a recording.
    if (auto* record = window.findChild<QWidget*>("Label1");
        record != nullptr && window.objectName() == "Record" && chance_.oneOf(4))
        return record;
    QWidgetList controls;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (control->isVisible() && control->isEnabled() && !control->objectName().isEmpty() &&
            control->window() == &window)
            controls.push_back(control);
    }
    return controls.isEmpty() ? nullptr
                              : controls.at(chance_.below(static_cast<int>(controls.size())));
}

QPoint RandomUser::anyPointOf(QWidget& window) {
    QWidget* control = chance_.percent(75) ? anyControlOf(window) : nullptr;
    if (control == nullptr || !control->isVisible())
        return {chance_.below(window.width()), chance_.below(window.height())};
    return control->mapTo(
        &window, QPoint(chance_.below(control->width()), chance_.below(control->height())));
}

bool RandomUser::wouldEnd(const QWidget* control) {
    const QString name = control->objectName();
    const bool ends = name == "Cmd2(14)" ||
                      (name == "imgTitleClose" && control->window() == &host_.program.form1());
    return ends && !chance_.oneOf(10);
}

RandomUser::Place RandomUser::anyPlace() {
    QWidget* window = anyWindow();
    const QPoint point = anyPointOf(*window);
    QWidget* child = window->childAt(point);
    QWidget* hit = child != nullptr ? child : window;
    if (!isOfTheProgram(*window) || wouldEnd(hit))
        return {};
    return {window, point, hit};
}

// Half a second apart, so that double clicks happen only on purpose.
void RandomUser::sendMouse(QEvent::Type type, QWidget& window, QPoint point,
                           Qt::MouseButton button) {
    ++tally_.events;
    timestamp_ += chance_.oneOf(20) && !expected_ ? 1 : 600;
    host_.desktop.pointer = window.mapToGlobal(point);
    qt_handleMouseEvent(window.windowHandle(), point, host_.desktop.pointer, held_, button, type,
                        Qt::NoModifier, timestamp_);
}

void RandomUser::sendKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers) {
    QWindow* handle = window.windowHandle();
    if (handle == nullptr)
        return;
    ++tally_.events;
    ++tally_.keys;
    const QPointer<QWindow> target(handle);
    const QString text = textOf({key, modifiers});
    const auto stamp = static_cast<ulong>(timestamp_ += 600);
    if (!qt_sendShortcutOverrideEvent(handle, stamp, key, modifiers, text))
        qt_handleKeyEvent(handle, QEvent::KeyPress, key, modifiers, text);
    if (target)
        qt_handleKeyEvent(target, QEvent::KeyRelease, key, modifiers, text);
}

void RandomUser::typeKey(QWidget& window) {
    if (!isOfTheProgram(window))
        return;
    const Key& key = chance_.among(keys);
    window.activateWindow();
    sendKey(window, key.key, key.modifiers);
}

void RandomUser::turnWheel() {
    const Place place = anyPlace();
    if (place.window == nullptr)
        return;
    // A list that takes the wheel changes the instrument of the selected notes.
    if (place.window == &host_.program.form1())
        expect(gridsOf(host_.program.studio().score), "a turn of the wheel");
    ++tally_.events;
    ++tally_.turns;
    const QPointF global = place.window->mapToGlobal(place.point);
    QWheelEvent event(place.hit->mapFromGlobal(global), global, {},
                      QPoint(0, chance_.oneOf(2) ? 120 : -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(place.hit, &event);
}

void RandomUser::actInPopup(QWidget& popup) {
    ++tally_.choices;
    held_ = Qt::NoButton;
    auto* menu = qobject_cast<QMenu*>(&popup);
    if (menu != nullptr && !menu->actions().isEmpty()) {
        QAction* action =
            menu->actions().at(chance_.below(static_cast<int>(menu->actions().size())));
        const bool isRefused = action->objectName() == "mnuExit" && !chance_.oneOf(10);
        if (!action->isSeparator() && !isRefused)
            menu->setActiveAction(action);
        sendKey(popup, isRefused || chance_.oneOf(5) ? Qt::Key_Escape : Qt::Key_Return, {});
        return;
    }
    sendKey(popup, chance_.among(listKeys), {});
}

void RandomUser::actInDialog(QWidget& dialog) {
    held_ = Qt::NoButton;
    ++tally_.choices;
    if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
        answer(*files);
        return;
    }
    if (chance_.oneOf(3)) {
        sendKey(dialog, chance_.oneOf(2) ? Qt::Key_Return : Qt::Key_Escape, {});
        return;
    }
    const QPoint point = anyPointOf(dialog);
    held_ = Qt::LeftButton;
    sendMouse(QEvent::MouseButtonPress, dialog, point, Qt::LeftButton);
    held_ = Qt::NoButton;
    if (QApplication::activeModalWidget() == &dialog)
        sendMouse(QEvent::MouseButtonRelease, dialog, point, Qt::LeftButton);
}

// Chooses a file of the dialog, or types a new name. A file that is not a score would be read as
// one, with any values.
void RandomUser::answer(QFileDialog& dialog) {
    ++tally_.events;
    const QString patterns = dialog.selectedNameFilter().section('(', 1).section(')', 0, 0);
    const QStringList names = dialog.directory().entryList(patterns.split(' '), QDir::Files);
    const bool takesOld =
        !names.isEmpty() && (dialog.acceptMode() == QFileDialog::AcceptOpen || chance_.oneOf(3));
    if (chance_.oneOf(4) || (!takesOld && dialog.acceptMode() == QFileDialog::AcceptOpen)) {
        dialog.reject();
        return;
    }
    dialog.selectFile(takesOld ? names.at(chance_.below(static_cast<int>(names.size())))
                               : QString("song %1").arg(chance_.below(20)));
    QMetaObject::invokeMethod(&dialog, "accept");
}

} // namespace randomly
