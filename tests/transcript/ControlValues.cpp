// Reads and sets the values of the standard controls.
#include "ControlValues.h"

#include "Answers.h"
#include "ControlNames.h"

#include "windows/frame/RowButton.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QShortcut>
#include <QTabWidget>

#include <algorithm>

namespace transcript {

namespace {

[[noreturn]] void refuseToSet(const QWidget& control) {
    throw CommandError("cannot be set: " + nameOf(control));
}

int entryOf(const std::string& word, int count) {
    return numberBetween(word, 0, count - 1);
}

void setList(QComboBox& list, const std::string& word) {
    const int index = entryOf(word, list.count());
    if (index == list.currentIndex())
        return;
    list.setCurrentIndex(index);
    Q_EMIT list.activated(index);
}

/// A user can unset an option only by choosing another.
void setBox(QAbstractButton& button, const std::string& word) {
    const bool wanted = numberBetween(word, 0, 1) == 1;
    if (wanted == button.isChecked())
        return;
    if (auto* option = qobject_cast<velorin::RowButton*>(&button)) {
        if (wanted && option->onPress)
            option->onPress();
    } else {
        button.click();
    }
}

void setText(QLineEdit& box, const std::string& word) {
    const QString text = QString::fromStdString(word);
    if (text != box.text())
        box.setText(text);
}

bool isCheckable(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button != nullptr && button->isCheckable();
}

void setEnabledControl(QWidget& control, const std::string& word) {
    if (isCheckable(control))
        setBox(static_cast<QAbstractButton&>(control), word);
    else if (auto* list = qobject_cast<QComboBox*>(&control))
        setList(*list, word);
    else if (auto* rows = qobject_cast<QListWidget*>(&control))
        rows->setCurrentRow(entryOf(word, rows->count()));
    else if (auto* bar = qobject_cast<QScrollBar*>(&control))
        bar->setValue(std::clamp(plainNumber(word), bar->minimum(), bar->maximum()));
    else if (auto* box = qobject_cast<QLineEdit*>(&control))
        setText(*box, word);
    else if (auto* tabs = qobject_cast<QTabWidget*>(&control))
        tabs->setCurrentIndex(entryOf(word, tabs->count()));
    else
        refuseToSet(control);
}

bool canBeSet(const QWidget& control) {
    return isCheckable(control) || qobject_cast<const QComboBox*>(&control) != nullptr ||
           qobject_cast<const QListWidget*>(&control) != nullptr ||
           qobject_cast<const QScrollBar*>(&control) != nullptr ||
           qobject_cast<const QLineEdit*>(&control) != nullptr ||
           qobject_cast<const QTabWidget*>(&control) != nullptr;
}

} // namespace

void setValue(QWidget& control, const std::string& word) {
    if (!canBeSet(control))
        refuseToSet(control);
    if (control.isEnabled())
        setEnabledControl(control, word);
}

Lines valueOf(QWidget& control) {
    if (isCheckable(control))
        return {static_cast<QAbstractButton&>(control).isChecked() ? "1" : "0"};
    if (const auto* list = qobject_cast<QComboBox*>(&control))
        return answer(list->currentIndex());
    if (const auto* rows = qobject_cast<QListWidget*>(&control))
        return answer(rows->currentRow());
    if (const auto* bar = qobject_cast<QScrollBar*>(&control))
        return answer(bar->value());
    if (const auto* box = qobject_cast<QLineEdit*>(&control))
        return answer(box->text().toStdString());
    if (const auto* tabs = qobject_cast<QTabWidget*>(&control))
        return answer(tabs->currentIndex());
    return captionOf(control);
}

namespace {

QString keyText(QKeyCombination key) {
    const bool types = (key.keyboardModifiers() & ~Qt::ShiftModifier) == Qt::NoModifier &&
                       key.key() < Qt::Key_Escape;
    if (!types)
        return {};
    const QChar letter(static_cast<char16_t>(key.key()));
    return key.keyboardModifiers() == Qt::NoModifier ? QString(letter.toLower()) : QString(letter);
}

/// True if the control takes the key itself, like a text box.
bool keepsKey(QWidget& control, QKeyCombination key) {
    QKeyEvent question(QEvent::ShortcutOverride, key.key(), key.keyboardModifiers(), keyText(key));
    question.ignore();
    return control.isEnabled() && QApplication::sendEvent(&control, &question) &&
           question.isAccepted();
}

bool runShortcut(QWidget& control, QKeyCombination key) {
    const QKeySequence keys(key);
    for (QShortcut* shortcut : control.window()->findChildren<QShortcut*>()) {
        if (shortcut->isEnabled() && shortcut->keys().contains(keys)) {
            Q_EMIT shortcut->activated();
            return true;
        }
    }
    for (QAction* action : control.window()->findChildren<QAction*>()) {
        if (action->isEnabled() && action->shortcuts().contains(keys)) {
            action->trigger();
            return true;
        }
    }
    return false;
}

void press(QWidget& control, QKeyCombination key) {
    if (!control.isEnabled())
        return;
    QKeyEvent press(QEvent::KeyPress, key.key(), key.keyboardModifiers(), keyText(key));
    QApplication::sendEvent(&control, &press);
    QKeyEvent release(QEvent::KeyRelease, key.key(), key.keyboardModifiers(), keyText(key));
    QApplication::sendEvent(&control, &release);
}

} // namespace

void pressKey(QWidget& control, QKeyCombination key) {
    if (keepsKey(control, key) || !runShortcut(control, key))
        press(control, key);
}

} // namespace transcript
