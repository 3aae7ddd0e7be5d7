// The title in the title bar of the main window.
#include "windows/strip/TitleLabel.h"

#include "windows/frame/LookColors.h"

#include <QPainter>

namespace velorin {

namespace {

constexpr char program[] = "Velorin";

/// What follows the name.
QString endOf(bool isUnsaved) {
    return isUnsaved ? QStringLiteral(" \u2022 - Velorin") : QStringLiteral(" - Velorin");
}

} // namespace

TitleLabel::TitleLabel(const QString& caption, QWidget* parent) : QLabel(caption, parent) {
    setProperty("role", "title");
}

QString TitleLabel::titleOf(const QString& name, bool isUnsaved) {
    return name.isEmpty() ? QLatin1String(program) : name + endOf(isUnsaved);
}

void TitleLabel::showScore(const QString& name, bool isUnsaved) {
    if (name_ == name && isUnsaved_ == isUnsaved)
        return;
    name_ = name;
    isUnsaved_ = isUnsaved;
    const QLatin1String state(isUnsaved ? ", not saved" : ", saved");
    setAccessibleName(name.isEmpty() ? QString() : name + state);
    update();
}

QString TitleLabel::shown(int widthPx) const {
    if (name_.isEmpty())
        return text();
    const QFontMetrics letters = fontMetrics();
    const QString end = endOf(isUnsaved_);
    return letters.elidedText(name_, Qt::ElideMiddle, widthPx - letters.horizontalAdvance(end)) +
           end;
}

void TitleLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(look::cream);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, shown(width()));
}

} // namespace velorin
