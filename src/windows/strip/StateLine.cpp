// The line of state in the strip.
#include "windows/strip/StateLine.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/RowButton.h"
#include "windows/texts/ScreenReader.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

// All places in the line, whose left edge is at 769 of the strip.
constexpr QRect chipPlace(0, 12, 28, 22);
constexpr QPoint lockCorner(36, 24);
constexpr int lockSize = 14;
constexpr int textLeft = 38;
constexpr int lockedTextLeft = 53;
constexpr int firstTop = 6;
constexpr int firstHeight = 17;
constexpr int secondTop = 23;
constexpr int secondHeight = 16;
constexpr int sentenceTop = 5;
constexpr int sentenceHeight = 36;
constexpr int sentenceLines = 2;
constexpr int rightOfLine = 184; ///< from the right edge of the line to that of the window

constexpr QColor aqua{192, 255, 255};

QFont fontOf(const QWidget& widget, int pixelSize, int weight) {
    QFont font = widget.font();
    font.setPixelSize(pixelSize);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(pixelSize > 11 ? QFont::PreferNoHinting
                                             : QFont::PreferVerticalHinting);
    return font;
}

double widestDigit(const QFontMetricsF& letters) {
    double widest = 0.0;
    for (char digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, letters.horizontalAdvance(QLatin1Char(digit)));
    return widest;
}

/// The width of a text whose digits all are as wide as the widest.
double tabularWidth(const QFontMetricsF& letters, const QString& text) {
    const double digit = widestDigit(letters);
    double width = 0.0;
    for (const QChar letter : text)
        width += letter.isDigit() ? digit : letters.horizontalAdvance(letter);
    return width;
}

/// Draws digits in places of equal width, so that the rest does not move while they change.
void drawTabular(QPainter& painter, QRectF box, const QString& text) {
    const QFontMetricsF letters(painter.font(), painter.device());
    const double digit = widestDigit(letters);
    double x = box.left();
    QString run;
    const auto drawRun = [&] {
        painter.drawText(QRectF(x, box.top(), box.right() - x, box.height()),
                         Qt::AlignLeft | Qt::AlignVCenter, run);
        x += letters.horizontalAdvance(run);
        run.clear();
    };
    for (const QChar letter : text) {
        if (!letter.isDigit()) {
            run += letter;
            continue;
        }
        drawRun();
        painter.drawText(QRectF(x, box.top(), digit, box.height()), Qt::AlignCenter,
                         QString(letter));
        x += digit;
    }
    drawRun();
}

} // namespace

StateLine::StateLine(QWidget* strip) : QWidget(strip), lock_(":/look/glyph-lock.svg") {
    setObjectName("stripState");
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void StateLine::place(int windowWidth) {
    setGeometry(left, 0, std::max(0, windowWidth - rightOfLine - left), parentWidget()->height());
}

void StateLine::showState(const StripState& state) {
    if (state == state_)
        return;
    const bool isNewSentence = state.sentence != state_.sentence && !state.sentence.isEmpty();
    const bool looksSame = stateWords(state) == stateWords(state_) && state.row == state_.row;
    state_ = state;
    describeStatus(*this, readerWords(state_), isNewSentence);
    if (!looksSame)
        update();
}

void StateLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font());
    paintRowFace(painter, chipPlace, state_.row);
    const StateWords words = stateWords(state_);
    if (words.sentence.isEmpty())
        paintLines(painter, words);
    else
        paintSentence(painter, words.sentence);
}

void StateLine::paintLines(QPainter& painter, const StateWords& words) const {
    painter.setFont(fontOf(*this, 12, QFont::DemiBold));
    painter.setPen(look::mist);
    const QRect first(textLeft, firstTop, width() - textLeft, firstHeight);
    painter.drawText(first, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(words.first, Qt::ElideRight, first.width()));
    if (words.isLocked)
        lock_.paint(&painter, QRect(lockCorner, QSize(lockSize, lockSize)));
    painter.setFont(fontOf(*this, 11, QFont::Normal));
    painter.setPen(words.isLive ? aqua : look::mist2);
    const int from = words.isLocked ? lockedTextLeft : textLeft;
    const QRect second(from, secondTop, width() - from, secondHeight);
    const QFontMetricsF letters(painter.font(), this);
    drawTabular(painter, second,
                fittingParts(words.second, second.width(), [&letters](const QString& text) {
                    return static_cast<int>(std::ceil(tabularWidth(letters, text)));
                }));
}

/// In up to two lines; the last one is elided.
void StateLine::paintSentence(QPainter& painter, const QString& sentence) const {
    const QFont small = fontOf(*this, 11, QFont::Normal);
    painter.setFont(small);
    painter.setPen(look::cream);
    const int room = width() - textLeft;
    QTextLayout layout(sentence, small);
    QStringList lines;
    layout.beginLayout();
    while (lines.size() < sentenceLines) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(room);
        const bool isLast = lines.size() + 1 == sentenceLines;
        lines += isLast ? painter.fontMetrics().elidedText(sentence.mid(line.textStart()),
                                                           Qt::ElideRight, room)
                        : sentence.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    painter.drawText(QRect(textLeft, sentenceTop, room, sentenceHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, lines.join('\n'));
}

} // namespace velorin
