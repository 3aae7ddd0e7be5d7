// A label with its own font and colour, independent of the style sheet.
#include "windows/main/InkLabel.h"

#include "drawing/Stamp.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>

namespace velorin {

QFont inkFont(int sizePx, int weight, int fallbackPx) {
    QFont font;
    font.setFamilies({"Inter", "DejaVu Sans"});
    font.setPixelSize(sizePx);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(sizePx <= 11 ? QFont::PreferVerticalHinting : QFont::PreferNoHinting);
    // The font is loaded, which painting with it needs anyway. Asking for the names of all fonts
    // takes a tenth of the start.
    if (QFontInfo(font).family() != QLatin1String("Inter"))
        font.setPixelSize(fallbackPx);
    return font;
}

InkLabel::InkLabel(QWidget* parent, const QString& name, const QFont& font, Colour colour)
    : QLabel(parent), font_(font), colour_(colour) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void InkLabel::setCaption(const QString& caption) {
    setText(caption);
    resize(QFontMetrics(font_).horizontalAdvance(caption) + 1, height());
}

void InkLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font_);
    painter.setPen(toQColor(colour_));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, text());
}

} // namespace velorin
