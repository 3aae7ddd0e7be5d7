// A label with a font and a colour of its own.
#include "tableaux/InkLabel.h"

#include "tableaux/Stamp.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>

namespace velorin {

QFont inkFont(int sizePx, int weight, int fallbackPx) {
    const bool hasInter = QFontDatabase::hasFamily("Inter");
    QFont font;
    font.setFamilies({"Inter", "DejaVu Sans"});
    font.setPixelSize(hasInter ? sizePx : fallbackPx);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(sizePx <= 11 ? QFont::PreferVerticalHinting : QFont::PreferNoHinting);
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
