// The properties of controls and windows that `get` prints.
#include "Answers.h"
#include "ControlNames.h"
#include "ControlValues.h"
#include "Runner.h"

#include "windows/frame/SkinnedFrame.h"
#include "windows/frame/ToolFrame.h"
#include "windows/help/HintPanel.h"
#include "windows/main/Form1.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QTabWidget>

#include <array>

namespace transcript {

namespace {

using Getter = Lines (*)(Runner&, QWidget&);

[[noreturn]] void refuse(const QWidget& control) {
    throw CommandError("no such property: " + nameOf(control));
}

std::string joined(std::initializer_list<std::int64_t> numbers) {
    std::string text;
    for (const std::int64_t number : numbers)
        text.append(text.empty() ? 0 : 1, ',').append(std::to_string(number));
    return text;
}

Lines yesNo(bool value) {
    return {value ? "1" : "0"};
}

Lines caption(Runner&, QWidget& control) {
    return captionOf(control);
}

Lines tooltip(Runner&, QWidget& control) {
    return answer(control.toolTip().toStdString());
}

Lines enabled(Runner&, QWidget& control) {
    return yesNo(control.isEnabled());
}

// The control's own state: on a hidden tab or in a hidden window it still counts as visible.
Lines visible(Runner&, QWidget& control) {
    return yesNo(control.isWindow() ? control.isVisible() : !control.isHidden());
}

// A length is printed as a whole number if it is one.
std::string twips(float length) {
    return answer(length).front();
}

Lines rectOf(const velorin::WindowPlace& place) {
    return {twips(place.Left()) + "," + twips(place.Top()) + "," + twips(place.Width()) + "," +
            twips(place.Height())};
}

Lines rect(Runner& runner, QWidget& control) {
    if (&control == &runner.form1())
        return rectOf(runner.form1().place);
    if (const auto* tool = qobject_cast<velorin::ToolFrame*>(&control))
        return rectOf(tool->place);
    if (const auto* hint = qobject_cast<velorin::HintPanel*>(&control))
        return rectOf(hint->place);
    const QRect box = control.geometry();
    const int unit = control.isWindow() ? platform::twipsPerPixel : 1;
    return {joined({box.x() * unit, box.y() * unit, box.width() * unit, box.height() * unit})};
}

Lines items(Runner&, QWidget& control) {
    Lines lines;
    if (const auto* list = qobject_cast<QComboBox*>(&control)) {
        for (int i = 0; i < list->count(); ++i)
            lines.push_back(list->itemText(i).toStdString());
    } else if (const auto* rows = qobject_cast<QListWidget*>(&control)) {
        for (int i = 0; i < rows->count(); ++i)
            lines.push_back(rows->item(i)->text().toStdString());
    } else if (const auto* tabs = qobject_cast<QTabWidget*>(&control)) {
        for (int i = 0; i < tabs->count(); ++i)
            lines.push_back(tabs->tabText(i).toStdString());
    } else {
        refuse(control);
    }
    return lines;
}

QScrollBar& barOf(QWidget& control) {
    auto* bar = qobject_cast<QScrollBar*>(&control);
    if (bar == nullptr)
        refuse(control);
    return *bar;
}

Lines minimum(Runner&, QWidget& control) {
    return answer(barOf(control).minimum());
}

Lines maximum(Runner&, QWidget& control) {
    return answer(barOf(control).maximum());
}

Lines color(Runner&, QWidget& control) {
    if (const auto* box = qobject_cast<velorin::PictureBox*>(&control)) {
        const velorin::Colour ground = box->picture.ground();
        return {joined({ground & 0xFF, (ground >> 8) & 0xFF, (ground >> 16) & 0xFF})};
    }
    const QColor own = control.property("backColor").value<QColor>();
    const QColor ground = own.isValid() ? own : control.palette().color(control.backgroundRole());
    return {joined({ground.red(), ground.green(), ground.blue()})};
}

Lines pointer(Runner&, QWidget& control) {
    const auto* box = qobject_cast<velorin::PictureBox*>(&control);
    if (box == nullptr)
        refuse(control);
    return answer(box->MousePointer());
}

void expectWindow(const QWidget& control) {
    if (!control.isWindow())
        refuse(control);
}

Lines open(Runner&, QWidget& control) {
    expectWindow(control);
    return yesNo(true);
}

Lines title(Runner&, QWidget& control) {
    expectWindow(control);
    return answer(control.windowTitle().toStdString());
}

Lines topmost(Runner&, QWidget& control) {
    expectWindow(control);
    return yesNo(velorin::isTopMost(control));
}

Lines state(Runner&, QWidget& control) {
    expectWindow(control);
    return answer(control.isMinimized() ? 1 : control.isMaximized() ? 2 : 0);
}

Lines checked(Runner&, QWidget& control) {
    refuse(control);
}

struct Property {
    const char* name;
    Getter get;
};

constexpr std::array properties{
    Property{"caption", caption}, Property{"tooltip", tooltip}, Property{"enabled", enabled},
    Property{"visible", visible}, Property{"rect", rect},       Property{"items", items},
    Property{"min", minimum},     Property{"max", maximum},     Property{"color", color},
    Property{"pointer", pointer}, Property{"checked", checked}, Property{"open", open},
    Property{"topmost", topmost}, Property{"state", state},     Property{"title", title},
};

} // namespace

Lines captionOf(QWidget& control) {
    // A drawn caption, which the native title may differ from.
    const QVariant caption = control.property("caption");
    if (control.isWindow())
        return answer(
            (caption.isValid() ? caption.toString() : control.windowTitle()).toStdString());
    if (const auto* button = qobject_cast<QAbstractButton*>(&control))
        return answer(button->text().toStdString());
    if (caption.isValid())
        return answer(caption.toString().toStdString());
    if (const auto* label = qobject_cast<QLabel*>(&control))
        return answer(label->text().toStdString());
    refuse(control);
}

Lines propertyOf(Runner& runner, QWidget& control, const std::string& name) {
    for (const Property& property : properties) {
        if (name == property.name)
            return property.get(runner, control);
    }
    throw CommandError("no such property: " + name);
}

} // namespace transcript
