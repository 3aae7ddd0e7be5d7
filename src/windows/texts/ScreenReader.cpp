// Describes to screen readers the controls that Qt does not know.
#include "windows/texts/ScreenReader.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QTimer>

namespace velorin {

namespace {

constexpr char kindProperty[] = "readerKind";
constexpr char checkedProperty[] = "readerChecked";
constexpr char progressProperty[] = "readerProgress";
constexpr char wordsProperty[] = "readerWords";
constexpr char newsProperty[] = "readerNews";

/// A report has no words in it: the reader asks for them afterwards.
constexpr int newsMs = 3000;

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
    case ControlKind::status:
        return QAccessible::StatusBar;
    case ControlKind::window:
        return QAccessible::Window;
    case ControlKind::itself:
        break;
    }
    return QAccessible::Client;
}

bool isPressed(ControlKind kind) {
    return kind == ControlKind::button || kind == ControlKind::toggle ||
           kind == ControlKind::option || kind == ControlKind::checkBox;
}

/// A dialog keeps a reader, like the mouse, from the windows behind it.
bool isBehindDialog(const QWidget& control) {
    const QWidget* const dialog = QApplication::activeModalWidget();
    return dialog != nullptr && dialog != control.window() && !dialog->isAncestorOf(&control);
}

/// Sends the key directly to the control. The application would first look for a shortcut of the
/// active window, where the space key plays the song.
void pressSpace(QObject& control, QEvent::Type type) {
    QKeyEvent space(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    control.event(&space);
}

/// Qt's own interface of a button runs the handler before it answers. The handler of a button here
/// may open a dialog or play a song, and the reader would wait for as long.
ControlKind kindFor(const QWidget& control, ControlKind kind) {
    const auto* const button = qobject_cast<const QAbstractButton*>(&control);
    const bool isPlainButton = button != nullptr && !button->isCheckable();
    return kind == ControlKind::itself && isPlainButton ? ControlKind::button : kind;
}

/// What the control shows as its name.
QString captionOf(const QWidget& control) {
    if (const auto* const label = qobject_cast<const QLabel*>(&control))
        return label->text();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&control))
        return button->text().remove(QLatin1Char('&')).trimmed();
    return {};
}

/// Serves all kinds: the kind is a property of the widget.
class ReadControl final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    ReadControl(QWidget* control, ControlKind kind)
        : QAccessibleWidget(control, roleOf(kind)), kind_(kind) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && kind_ == ControlKind::status) {
            const QString news = widget()->property(newsProperty).toString();
            return news.isEmpty() ? widget()->property(wordsProperty).toString() : news;
        }
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? captionOf(*widget()) : own;
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
            state.focusable = false; // it passes the focus on
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
        // The reader gets its answer first: the handler may run as long as a song.
        QTimer::singleShot(0, widget(), [control = QPointer<QWidget>(widget())] {
            for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
                if (control && control->isEnabled() && !isBehindDialog(*control))
                    pressSpace(*control, type);
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
        return nullptr; // Qt's own interface is used
    return new ReadControl(control, static_cast<ControlKind>(kind.toInt()));
}

void reportName(QWidget& control) {
    QAccessibleEvent event(&control, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void showToReaders(QWidget& control, ControlKind given) {
    QAccessible::installFactory(makeReadControl); // a second call does nothing
    const ControlKind kind = kindFor(control, given);
    if (kind == ControlKind::itself || control.property(kindProperty).isValid())
        return;
    control.setProperty(kindProperty, static_cast<int>(kind));
    // An interface that was made before the kind was set has the wrong kind.
    if (QAccessibleInterface* const early = QAccessible::queryAccessibleInterface(&control))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
}

void announceChecked(QWidget& control, bool checked) {
    if (control.property(checkedProperty).toBool() == checked)
        return;
    control.setProperty(checkedProperty, checked);
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(&control, changed);
    QAccessible::updateAccessibility(&event);
}

void announceProgress(QWidget& control, int percent) {
    if (control.property(progressProperty).toInt() == percent)
        return;
    control.setProperty(progressProperty, percent);
    QAccessibleValueChangeEvent event(&control, percent);
    QAccessible::updateAccessibility(&event);
}

void describeStatus(QWidget& line, const QString& words, bool isNews) {
    line.setProperty(wordsProperty, words);
    if (isNews) {
        line.setProperty(newsProperty, {});
        reportName(line);
    }
}

void announceStatus(QWidget& line, const QString& words) {
    line.setProperty(newsProperty, words);
    reportName(line);
    QTimer::singleShot(newsMs, &line, [&line, words] {
        if (line.property(newsProperty).toString() == words)
            line.setProperty(newsProperty, {});
    });
}

void announceAlert(QWidget& window) {
    QAccessibleEvent event(&window, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace velorin
