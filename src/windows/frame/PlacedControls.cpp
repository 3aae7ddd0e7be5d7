// Helpers that make and place controls.
#include "windows/frame/PlacedControls.h"

#include "windows/frame/LookColors.h"

#include <QPalette>
#include <QStyle>
#include <QTabBar>
#include <QVariant>

namespace velorin {

QFrame* makePanel(QWidget* parent, QRect place) {
    auto* const panel = new QFrame(parent);
    panel->setProperty("role", "panel");
    panel->setGeometry(place);
    return panel;
}

QLabel* makeLabel(QWidget* parent, QRect place, const QString& text, const char* role) {
    auto* const label = new QLabel(text, parent);
    label->setProperty("role", role);
    label->setGeometry(place);
    return label;
}

void setStyled(QWidget& control, const char* property, bool set) {
    if (control.property(property).toBool() == set)
        return;
    control.setProperty(property, set);
    control.style()->unpolish(&control);
    control.style()->polish(&control);
    control.update();
}

// The style sheet gives the placeholder half of the opacity of the text when it polishes the field.
void setPlaceholder(QLineEdit& field, const QString& text) {
    field.setPlaceholderText(text);
    field.ensurePolished();
    QPalette palette = field.palette();
    palette.setColor(QPalette::PlaceholderText, look::ink3);
    field.setPalette(palette);
}

// The signal comes before the page changes.
void keepFocusOnTabs(QTabWidget& tabs) {
    QObject::connect(tabs.tabBar(), &QTabBar::tabBarClicked, &tabs, [&tabs] {
        const QWidget* const page = tabs.currentWidget();
        const QWidget* const holder = tabs.window()->focusWidget();
        if (page != nullptr && holder != nullptr && page->isAncestorOf(holder))
            tabs.tabBar()->setFocus(Qt::MouseFocusReason);
    });
}

} // namespace velorin
