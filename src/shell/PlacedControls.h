// Controls at their places: what the layouts of the tool windows make in the same way.
#pragma once

#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QRect>
#include <QString>
#include <QWidget>

namespace velorin {

/// Gives a control its name and its place, in pixels of its parent, and returns it.
template <class Control>
Control* named(Control* control, const QString& name, QRect place) {
    control->setObjectName(name);
    control->setGeometry(place);
    return control;
}

// `role` is what the style sheet knows them by. Their parents own them.
QFrame* makePanel(QWidget* parent, QRect place);
QLabel* makeLabel(QWidget* parent, QRect place, const QString& text, const char* role);

/// Sets a property that the style sheet goes by, and styles the control anew if it has changed.
void setStyled(QWidget& control, const char* property, bool set);

/// A picture of the look by its file's name, with its disabled variant if there is one.
[[nodiscard]] QIcon lookIcon(const QString& picture);

} // namespace velorin
