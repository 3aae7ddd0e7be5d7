// Gives controls their names and their texts from the table of controls.
#include "windows/texts/DescribedControls.h"

#include "windows/texts/ControlTable.h"
#include "windows/texts/KeyTable.h"
#include "windows/texts/ScreenReader.h"

#include <QComboBox>
#include <QLabel>
#include <QTabWidget>
#include <QWidget>

namespace velorin {

namespace {

QString descriptionOf(const ControlText& row, const std::string& keys) {
    QString text = QString::fromLatin1(row.hint).simplified();
    if (!keys.empty())
        text += QStringLiteral("%1Keys: %2")
                    .arg(text.isEmpty() ? "" : " ", QString::fromStdString(keys));
    return text;
}

/// The picture of button i is named "ImgPic(i)".
std::string pictureTip(const char* window, const std::string& button) {
    const std::string picture = "ImgPic" + button.substr(button.find('('));
    return controlTip(window, findControlText(window, picture) != nullptr ? picture : button);
}

/// Screen readers call a list by the entry that it shows. A label that is never shown says what the
/// list is for.
void labelForReaders(QWidget& list) {
    auto* const label = new QLabel(list.accessibleName(), list.parentWidget());
    label->setBuddy(&list);
    label->hide();
}

void describe(QWidget& control, const char* window, const std::string& name) {
    const ControlText* const row = findControlText(window, name);
    if (row == nullptr)
        return;
    showToReaders(control, row->kind);
    const QString tip = QString::fromStdString(controlTip(window, name));
    control.setToolTip(tip);
    if (name.starts_with("Cmd2("))
        control.setProperty("pictureTip", QString::fromStdString(pictureTip(window, name)));
    // The name of a label is its caption, which may change.
    if (*row->name != '\0' || qobject_cast<const QLabel*>(&control) == nullptr)
        control.setAccessibleName(QString::fromStdString(controlName(window, name)).trimmed());
    if (qobject_cast<const QComboBox*>(&control) != nullptr)
        labelForReaders(control);
    control.setAccessibleDescription(descriptionOf(*row, keysOf(window, name)));
}

void namePages(QTabWidget& tabs) {
    for (int i = 0; i < tabs.count(); ++i)
        tabs.widget(i)->setAccessibleName(tabs.tabText(i).trimmed());
}

} // namespace

QString elementName(const char* array, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

void describeControls(QWidget& root, const char* window) {
    for (QWidget* control : root.findChildren<QWidget*>()) {
        if (!control->objectName().isEmpty())
            describe(*control, window, control->objectName().toStdString());
        if (auto* const tabs = qobject_cast<QTabWidget*>(control))
            namePages(*tabs);
    }
}

} // namespace velorin
