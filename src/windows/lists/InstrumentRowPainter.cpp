// Paints the rows of an open list of instruments.
#include "windows/lists/InstrumentRowPainter.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/RowFont.h"
#include "windows/lists/InstrumentModel.h"

#include <QPainter>

namespace velorin {

namespace {

// From the left edge of the row, which is 1 pixel right of the list's edge.
constexpr int smallPx = 11; ///< of numbers and headings
constexpr int headingLeft = 11;
constexpr int numberLeft = 11;
constexpr int numberWidth = 28;
constexpr int nameLeft = 49;
constexpr QRect mark(254, 4, 16, 16);
constexpr int plateEdge = 2;
constexpr double plateRadius = 4.0;
constexpr int foundHeight = 16;
constexpr int foundEdge = 1; ///< on each side of the letters
constexpr double foundRadius = 3.0;

} // namespace

InstrumentRowPainter::InstrumentRowPainter(const InstrumentModel& model, QObject* parent)
    : QStyledItemDelegate(parent),
      model_(model),
      sounds_(lookIcon("play-small-ink")),
      chosen_(lookIcon("glyph-check-ink")),
      chosenAtCursor_(lookIcon("glyph-check-white")) {}

QSize InstrumentRowPainter::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    return {nameLeft, model_.hasHeading(index.row()) ? 2 * rowHeight : rowHeight};
}

void InstrumentRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    const Instrument* const shown = model_.instrument(index.row());
    if (shown == nullptr)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    QRect place = option.rect;
    if (model_.hasHeading(index.row())) {
        paintHeading(*painter, QRect(place.topLeft(), QSize(place.width(), rowHeight)), option.font,
                     shown->family);
        place.setTop(place.top() + rowHeight);
    }
    paintRow(*painter, place, option.font, index.row(),
             option.state.testFlag(QStyle::State_Selected));
    painter->restore();
}

void InstrumentRowPainter::paintHeading(QPainter& painter, const QRect& place, const QFont& font,
                                        const QString& family) const {
    painter.fillRect(place, look::paper2);
    painter.fillRect(QRect(place.left(), place.bottom(), place.width(), 1), look::paper3);
    painter.setFont(rowFont(font, smallPx, QFont::DemiBold));
    painter.setPen(look::ink3);
    painter.drawText(place.adjusted(headingLeft, 0, 0, 0), Qt::AlignVCenter, family);
}

void InstrumentRowPainter::paintRow(QPainter& painter, const QRect& place, const QFont& font,
                                    int row, bool isCursor) const {
    const Instrument& shown = *model_.instrument(row);
    if (isCursor)
        painter.fillRect(place, look::chosen);
    else if (row == pointerRow)
        painter.fillRect(place, look::paper3);
    const QString& typed = model_.typed();
    const QString number = QString::number(shown.number);
    const QFont small = rowFont(font, smallPx);
    const QRect numberPlace(place.left() + numberLeft, place.top(), numberWidth, place.height());
    const int left = place.left() + nameLeft;
    if (!typed.isEmpty() && !isCursor) {
        const int numberStart =
            numberPlace.right() + 1 - QFontMetrics(small).horizontalAdvance(number);
        if (number.startsWith(typed))
            paintPlate(painter, place, small, numberStart, number, 0, row);
        for (qsizetype at = shown.name.indexOf(typed, 0, Qt::CaseInsensitive); at >= 0;
             at = shown.name.indexOf(typed, at + typed.size(), Qt::CaseInsensitive))
            paintPlate(painter, place, font, left, shown.name, at, row);
    }
    painter.setFont(small);
    painter.setPen(isCursor ? look::paper : look::ink3);
    painter.drawText(numberPlace, Qt::AlignVCenter | Qt::AlignRight, number);
    painter.setFont(font);
    painter.setPen(isCursor ? look::paper : look::inkText);
    painter.drawText(QRect(left, place.top(), mark.left() - nameLeft, place.height()),
                     Qt::AlignVCenter | Qt::TextSingleLine, shown.name);
    paintMark(painter, place, row, isCursor);
}

void InstrumentRowPainter::paintPlate(QPainter& painter, const QRect& place, const QFont& font,
                                      int left, const QString& text, qsizetype from,
                                      int row) const {
    const QFontMetricsF metrics(font);
    const double start = metrics.horizontalAdvance(text.left(from));
    const double end = metrics.horizontalAdvance(text.left(from + model_.typed().size()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(row == pointerRow ? look::paper : look::find);
    painter.drawRoundedRect(QRectF(left + start - foundEdge,
                                   place.top() + (place.height() - foundHeight) / 2.0,
                                   end - start + 2 * foundEdge, foundHeight),
                            foundRadius, foundRadius);
}

void InstrumentRowPainter::paintMark(QPainter& painter, const QRect& place, int row,
                                     bool isCursor) const {
    const QRect box = mark.translated(place.topLeft());
    if (model_.placeOf(row) == soundingPlace) {
        if (isCursor) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(look::paper);
            painter.drawRoundedRect(box.adjusted(-plateEdge, -plateEdge, plateEdge, plateEdge),
                                    plateRadius, plateRadius);
        }
        sounds_.paint(&painter, box);
    } else if (model_.placeOf(row) == chosenPlace) {
        (isCursor ? chosenAtCursor_ : chosen_).paint(&painter, box);
    }
}

} // namespace velorin
