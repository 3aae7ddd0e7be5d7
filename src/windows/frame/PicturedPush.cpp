// A push button with a picture to the left of its text.
#include "windows/frame/PicturedPush.h"

#include "windows/frame/LookIcon.h"

#include <QPainter>

namespace velorin {

namespace {

constexpr int gap = 8;

} // namespace

// The border of a focused button is one pixel wider.
PicturedPush::PicturedPush(const QString& text, const QString& picture, QRect place,
                           QWidget* parent)
    : QPushButton(text, parent), picture_(lookIcon(picture)), place_(place) {
    const int left = place.right() + 1 + gap;
    setStyleSheet(QStringLiteral("QPushButton { text-align: left; padding-left: %1px; } "
                                 "QPushButton:focus { padding-left: %2px; }")
                      .arg(left - 1)
                      .arg(left - 2));
}

void PicturedPush::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    picture_.paint(&painter, place_, Qt::AlignCenter,
                   isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

} // namespace velorin
