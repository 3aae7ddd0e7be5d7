// What a reader of the screen is told of controls that the toolkit does not know by itself.
#include "controls/ScreenReader.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QTimer>

namespace velorin {

namespace {

constexpr char kindProperty[] = "readerKind";
constexpr char checkedProperty[] = "readerChecked";
constexpr char progressProperty[] = "readerProgress";

QAccessible::Role roleOf(ControlKind kind) {
    switch (kind) {
    case ControlKind::button:
        return QAccessible::Button;
    case ControlKind::option:
        return QAccessible::RadioButton;
    case ControlKind::checkBox:
    case ControlKind::toggle:
        return QAccessible::CheckBox;
    case ControlKind::picture:
        return QAccessible::Graphic;
    case ControlKind::tableau:
        return QAccessible::Canvas;
    case ControlKind::progress:
        return QAccessible::ProgressBar;
    case ControlKind::grip:
        return QAccessible::Grip;
    case ControlKind::strip:
        return QAccessible::ToolBar;
    case ControlKind::pages:
        return QAccessible::LayeredPane;
    case ControlKind::alert:
        return QAccessible::AlertMessage;
    case ControlKind::itself:
        break;
    }
    return QAccessible::Client;
}

bool isPressed(ControlKind kind) {
    return kind == ControlKind::button || kind == ControlKind::toggle ||
           kind == ControlKind::option || kind == ControlKind::checkBox;
}

/// Straight to the control: the application would look for a shortcut of the active window first,
/// and the space bar plays the song there.
void giveSpace(QObject& control, QEvent::Type type) {
    QKeyEvent space(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    control.event(&space);
}

/// Its kind is the widget's property, so that one class serves all of them.
class ReadControl final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    ReadControl(QWidget* control, ControlKind kind)
        : QAccessibleWidget(control, roleOf(kind)), kind_(kind) {}

    QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        const auto* label = qobject_cast<const QLabel*>(widget());
        return kind == QAccessible::Name && own.isEmpty() && label != nullptr ? label->text() : own;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget())) {
            state.checkable = button->isCheckable();
            state.checked = button->isChecked();
            state.pressed = button->isDown();
        }
        if (kind_ == ControlKind::toggle) {
            state.checkable = true;
            state.checked = widget()->property(checkedProperty).toBool();
        }
        state.readOnly = kind_ == ControlKind::progress;
        if (widget()->focusProxy() != nullptr)
            state.focusable = false; // it hands the keyboard on
        return state;
    }

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (isPressed(kind_) && widget()->isEnabled())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& name) override {
        if (name != pressAction())
            return QAccessibleWidget::doAction(name);
        // The reader has its answer first: what is pressed may last as long as a song.
        QTimer::singleShot(0, widget(), [control = QPointer<QWidget>(widget())] {
            for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
                if (control && control->isEnabled())
                    giveSpace(*control, type);
        });
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface && kind_ == ControlKind::progress)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return widget()->property(progressProperty).toInt(); }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    ControlKind kind_;
};

QAccessibleInterface* makeReadControl(const QString&, QObject* object) {
    auto* const control = qobject_cast<QWidget*>(object);
    const QVariant kind = control != nullptr ? control->property(kindProperty) : QVariant();
    if (!kind.isValid())
        return nullptr; // the toolkit's own will do
    return new ReadControl(control, static_cast<ControlKind>(kind.toInt()));
}

} // namespace

void showToReaders(QWidget& control, ControlKind kind) {
    QAccessible::installFactory(makeReadControl); // a second call does nothing
    if (kind == ControlKind::itself || control.property(kindProperty).isValid())
        return;
    control.setProperty(kindProperty, static_cast<int>(kind));
    // What stood for the control while it was made is not of its kind.
    if (QAccessibleInterface* const early = QAccessible::queryAccessibleInterface(&control))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
}

void tellReadersChecked(QWidget& control, bool checked) {
    if (control.property(checkedProperty).toBool() == checked)
        return;
    control.setProperty(checkedProperty, checked);
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(&control, changed);
    QAccessible::updateAccessibility(&event);
}

void tellReadersProgress(QWidget& control, int percent) {
    if (control.property(progressProperty).toInt() == percent)
        return;
    control.setProperty(progressProperty, percent);
    QAccessibleValueChangeEvent event(&control, percent);
    QAccessible::updateAccessibility(&event);
}

void tellReadersNews(QWidget& window) {
    QAccessibleEvent event(&window, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace velorin
