// Controls at their places.
#include "shell/PlacedControls.h"

#include <QFile>
#include <QStyle>
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

QIcon lookIcon(const QString& picture) {
    QIcon icon;
    icon.addFile(QStringLiteral(":/look/%1.svg").arg(picture), QSize(), QIcon::Normal);
    const QString off = QStringLiteral(":/look/off/%1.svg").arg(picture);
    if (QFile::exists(off))
        icon.addFile(off, QSize(), QIcon::Disabled);
    return icon;
}

} // namespace velorin
