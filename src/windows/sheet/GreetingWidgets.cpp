// The widgets of the greeting.
#include "windows/sheet/GreetingWidgets.h"

#include "drawing/CellGrid.h"
#include "drawing/Stamp.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/main/InkLabel.h"
#include "windows/texts/SheetTexts.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

namespace velorin {

namespace {

constexpr QColor stripInk{24, 92, 52};
constexpr QColor pressedPaper{210, 213, 236};
constexpr QColor ghostNoteColour{192, 192, 255}; // as the first channel when another one is active
constexpr QColor ghostBeatColour{255, 192, 255};
constexpr double ghostNoteShare = 0.75;
constexpr double ghostBeatShare = 0.8;
constexpr double pictureShare = 0.75;
constexpr QPoint penTip{3, 28}; // in its picture of 32 by 32

QColor paperWith(int alpha) {
    QColor colour = look::paper;
    colour.setAlpha(alpha);
    return colour;
}

QFont fontOf(int sizePx, int weight) {
    return inkFont(sizePx, weight, sizePx - 1);
}

/// A head with a tail, as the tableaux draw them.
void paintNote(QPainter& painter, const QRect& cells, const QColor& colour) {
    const QPointF corner = cells.topLeft();
    if (cells.width() > cellPx)
        painter.fillRect(QRect(cells.x() + 2, cells.y() + 4, cells.width() - 2, 4), colour);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(colour);
    painter.drawEllipse(corner + QPointF(5.5, 5.5), 5, 5);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawEllipse(corner + QPointF(3.5, 3.5), 1, 1);
}

/// Paints it faintly as a whole, so the tail does not show through the head.
void paintGhost(QPainter& painter, const QRect& cells, const QColor& colour, double share) {
    const double ratio = painter.device()->devicePixelRatioF();
    QImage image(QSizeF(cells.size() * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    {
        QPainter own(&image);
        own.translate(-cells.topLeft());
        paintNote(own, cells, colour);
    }
    painter.setOpacity(share);
    painter.drawImage(cells.topLeft(), image);
    painter.setOpacity(1);
}

void paintWords(QPainter& painter, const QRect& place, const char* words, const QFont& font,
                const QColor& colour) {
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip,
                     QString::fromLatin1(words));
}

} // namespace

GreetingPlaces placeGreeting(const GreetingRoom& room) {
    return placeGreeting(room, [](const char* text, int sizePx, int weight) {
        return QFontMetrics(fontOf(sizePx, weight)).horizontalAdvance(QString::fromLatin1(text));
    });
}

GreetingOverlay::GreetingOverlay(QWidget* parent)
    : QWidget(parent), pen_(lookIcon("cursor-pen")), chords_(lookIcon("change-chords")) {
    setObjectName("Greeting");
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void GreetingOverlay::setPlaces(const GreetingPlaces& places) {
    places_ = places;
    update();
}

void GreetingOverlay::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.translate(-pos());
    paintNote(painter);
    paintBeat(painter);
    paintChords(painter);
}

void GreetingOverlay::paintNote(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paperWith(225));
    painter.drawRoundedRect(places_.notePlate, 8, 8);
    paintWords(painter, places_.noteWords, greetingNote, fontOf(places_.notePx, 500), look::ink3);
    if (!places_.longerWords.isEmpty())
        paintWords(painter, places_.longerWords, greetingLonger, fontOf(12, 400), look::ink3);
    if (places_.ghostNote.isEmpty())
        return;
    paintGhost(painter, places_.ghostNote, ghostNoteColour, ghostNoteShare);
    const QPoint hotSpot = places_.ghostNote.topLeft() + QPoint(6, 5);
    pen_.paint(&painter, QRect(hotSpot - penTip, QSize(32, 32)));
}

void GreetingOverlay::paintBeat(QPainter& painter) {
    if (places_.beatWords.isEmpty())
        return;
    paintWords(painter, places_.beatWords, greetingBeat, fontOf(places_.beatPx, places_.beatWeight),
               stripInk);
    if (!places_.ghostBeat.isEmpty())
        paintGhost(painter, places_.ghostBeat, ghostBeatColour, ghostBeatShare);
}

void GreetingOverlay::paintChords(QPainter& painter) {
    if (places_.chordPlate.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paperWith(235));
    painter.drawRoundedRect(places_.chordPlate, 5, 5);
    painter.setOpacity(pictureShare);
    chords_.paint(&painter, places_.chordPicture);
    painter.setOpacity(1);
    paintWords(painter, places_.chordWords, greetingChords, fontOf(12, 500), look::ink3);
}

OpenSongButton::OpenSongButton(QWidget* parent)
    : QPushButton(QString::fromLatin1(greetingOpen), parent), picture_(lookIcon("change-open")) {
    setObjectName("OpenSong");
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setCursor(Qt::ArrowCursor);
    setToolTip(QString::fromLatin1(greetingOpenTip));
    setAccessibleName(QString::fromLatin1(greetingOpen));
    setAccessibleDescription(QString::fromLatin1(greetingOpenHint));
}

/// Space presses the button. Elsewhere in the window it plays and stops the song.
bool OpenSongButton::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        event->accept();
        return true;
    }
    return QPushButton::event(event);
}

void OpenSongButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isFocused = hasFocus();
    const double line = isFocused ? 2.0 : 1.0;
    painter.setPen(QPen(isFocused ? look::chosen : look::edge2, line));
    painter.setBrush(isDown() ? pressedPaper : underMouse() ? look::paper3 : look::paper);
    const double inset = line / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 5, 5);
    picture_.paint(&painter, QRect(12, 7, 16, 16));
    paintWords(painter, QRect(36, 0, width() - 36, height()), greetingOpen, fontOf(12, 500),
               look::inkText);
}

} // namespace velorin
