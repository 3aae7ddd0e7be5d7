// `Shape2`, the ground behind the bar numbers.
#include "windows/main/Ruler.h"

#include "drawing/Stamp.h"
#include "windows/main/InkLabel.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>

#include <utility>

namespace velorin {

namespace {

constexpr Colour leftEnd = rgb(0, 0, 64); // as the ground of the work area
constexpr Colour ground = rgb(30, 34, 98);
constexpr int shadePx = 40;
constexpr int rightMarginPx = 4;

} // namespace

QFont barNumberFont() {
    return inkFont(10, 600, 10);
}

Ruler::Ruler(QWidget* parent) : QWidget(parent), font_(barNumberFont()) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Ruler::setNumbers(std::vector<Number> numbers) {
    if (numbers == numbers_)
        return;
    numbers_ = std::move(numbers);
    update();
}

void Ruler::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient shade(0, 0, shadePx, 0);
    shade.setColorAt(0, toQColor(leftEnd));
    shade.setColorAt(1, toQColor(ground));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawRoundedRect(QRectF(rect()), 4, 4);

    painter.setFont(font_);
    painter.setPen(toQColor(barNumberColour));
    const QFontMetrics metrics(font_);
    for (const Number& bar : numbers_) {
        const QString text = QString::number(bar.number);
        const QRect place(bar.left - x(), 0, metrics.horizontalAdvance(text) + 1, height());
        if (place.right() < width() - rightMarginPx)
            painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, text);
    }
}

} // namespace velorin
