// Helpers that make and place controls, shared by the layouts of the tool windows.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QRect>
#include <QString>
#include <QTabWidget>
#include <QWidget>

namespace velorin {

/// Gives a control its name and its place, in pixels of its parent, and returns it.
template <class Control>
Control* named(Control* control, const QString& name, QRect place) {
    control->setObjectName(name);
    control->setGeometry(place);
    return control;
}

// The style sheet selects them by the property `role`. Their parents own them.
QFrame* makePanel(QWidget* parent, QRect place);
QLabel* makeLabel(QWidget* parent, QRect place, const QString& text, const char* role);

/// Sets a property that the style sheet uses, and restyles the control if it has changed.
void setStyled(QWidget& control, const char* property, bool set);

/// Sets what an empty field asks for. The style sheet alone would make it too pale to read.
void setPlaceholder(QLineEdit& field, const QString& text);

/// A click on a tab keeps the focus on the tabs if it was on the page that goes. Qt would give it
/// to the first control of the next page, which the user has not chosen.
void keepFocusOnTabs(QTabWidget& tabs);

} // namespace velorin
