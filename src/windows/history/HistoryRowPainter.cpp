// Paints the rows of the History window's list.
#include "windows/history/HistoryRowPainter.h"

#include "history/Change.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/RowFont.h"
#include "windows/history/HistoryModel.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

namespace velorin {

namespace {

constexpr int barWidth = 3;
constexpr int timeLeft = 10;
constexpr int timeWidth = 36;
constexpr int kindLeft = 49;
constexpr int kindTop = 4;
constexpr int kindSize = 16;
constexpr int plateEdge = 2; ///< of the paper plate on each side of a picture
constexpr int smallPx = 11;  ///< of times, days and marks
constexpr int textLeft = 75;
constexpr int rightGap = 10;
constexpr int nowHeight = 16;
constexpr int nowPadding = 8;
constexpr int gap = 8;
constexpr int fileGap = 3; ///< between a file and its picture
constexpr QLatin1String nowWord("now");
constexpr QLatin1String undoneWord("undone");
constexpr double undoneOpacity = 0.55;

} // namespace

/// What one painting of an entry knows.
struct HistoryRowPainter::Entry {
    QRect row;
    QFont font;
    const HistoryModel::Line& line;
    bool isCursor;
    bool isNow;
    bool isUndone;

    [[nodiscard]] QColor colour() const {
        return isCursor ? look::paper : isUndone ? look::ink3 : look::inkText;
    }
    [[nodiscard]] QColor secondary() const { return isCursor ? look::paper : look::ink3; }
    [[nodiscard]] QRect text() const; ///< the place of the description
};

/// The marks at the right end, from the right to the left; those that are not there are empty.
struct HistoryRowPainter::Marks {
    explicit Marks(const Entry& entry);

    QRect now;
    QRect undone;
    QRect file;
    QRect filePicture; ///< a moment of saving has it as its kind already
    QString fileText;
    int left; ///< where the first one begins
};

HistoryRowPainter::Marks::Marks(const Entry& entry)
    : left(entry.row.left() + entry.row.width() - rightGap) {
    const QRect& row = entry.row;
    const auto take = [&](int width, int height) {
        const QRect place(left - width, row.top() + (row.height() - height) / 2, width, height);
        left = place.left() - gap;
        return place;
    };
    const QFontMetrics small(rowFont(entry.font, smallPx));
    if (entry.isNow) {
        const QFontMetrics bold(rowFont(entry.font, smallPx, QFont::DemiBold));
        now = take(bold.horizontalAdvance(nowWord) + 2 * nowPadding, nowHeight);
    } else if (entry.isUndone) {
        undone = take(small.horizontalAdvance(undoneWord), row.height());
    }
    if (!entry.line.isSaved || entry.line.file.isEmpty())
        return;
    fileText = small.elidedText(entry.line.file, Qt::ElideMiddle, row.width() * 2 / 5);
    file = take(small.horizontalAdvance(fileText), row.height());
    if (entry.line.kind == QLatin1String(changeKind::saved))
        return;
    left = file.left() - fileGap;
    filePicture = take(kindSize, kindSize);
}

QRect HistoryRowPainter::Entry::text() const {
    const int from = row.left() + textLeft;
    return {from, row.top(), Marks(*this).left - from, row.height()};
}

HistoryRowPainter::HistoryRowPainter(const HistoryModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model), unknown_(lookIcon("change-block")) {
    for (const char* const kind :
         {changeKind::notes, changeKind::erase, changeKind::beats, changeKind::chords,
          changeKind::block, changeKind::instrument, changeKind::tempo, changeKind::open,
          changeKind::clear, changeKind::saved})
        kinds_[QLatin1String(kind)] = lookIcon(QStringLiteral("change-") + QLatin1String(kind));
}

const QIcon& HistoryRowPainter::kindIcon(const QString& kind) const {
    const auto found = kinds_.find(kind);
    return found != kinds_.end() ? found->second : unknown_;
}

QSize HistoryRowPainter::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    return {textLeft, model_.isDay(index.row()) ? dayHeight : entryHeight};
}

void HistoryRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    painter->save();
    const HistoryModel::Line* const line = model_.line(index.row());
    if (line == nullptr) {
        painter->setFont(rowFont(option.font, smallPx, QFont::DemiBold));
        paintDay(*painter, option.rect, index.data().toString());
    } else {
        const bool isCursor = option.state.testFlag(QStyle::State_Selected);
        if (isCursor)
            painter->fillRect(option.rect, look::chosen);
        else if (index.row() == pointerRow_)
            painter->fillRect(option.rect, look::paper3);
        paintEntry(*painter, entryOf(option, *line));
    }
    painter->restore();
}

HistoryRowPainter::Entry HistoryRowPainter::entryOf(const QStyleOptionViewItem& option,
                                                    const HistoryModel::Line& line) const {
    return {option.rect,
            option.font,
            line,
            option.state.testFlag(QStyle::State_Selected),
            model_.isNow(line),
            model_.isUndone(line)};
}

void HistoryRowPainter::paintDay(QPainter& painter, const QRect& row, const QString& text) const {
    painter.fillRect(row, look::paper2);
    painter.fillRect(QRect(row.left(), row.bottom(), row.width(), 1), look::paper3);
    painter.setPen(look::ink3);
    painter.drawText(row.adjusted(timeLeft, 0, -rightGap, -1), Qt::AlignVCenter, text);
}

void HistoryRowPainter::paintEntry(QPainter& painter, const Entry& entry) const {
    const QRect& row = entry.row;
    if (entry.isNow)
        painter.fillRect(QRect(row.left(), row.top(), barWidth, row.height()), look::sky);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(rowFont(entry.font, smallPx));
    painter.setPen(entry.secondary());
    painter.drawText(QRect(row.left() + timeLeft, row.top(), timeWidth, row.height()),
                     Qt::AlignVCenter, HistoryModel::timeOf(entry.line));
    paintPicture(painter, QRect(row.left() + kindLeft, row.top() + kindTop, kindSize, kindSize),
                 kindIcon(entry.line.kind), entry);
    const QRect text = entry.text();
    paintText(painter, text,
              QFontMetrics(entry.font).elidedText(entry.line.text, Qt::ElideRight, text.width()),
              entry.font, entry.colour());
    paintMarks(painter, entry);
}

// A picture for paper never lies on the cursor's blue: it gets a plate of paper.
void HistoryRowPainter::paintPicture(QPainter& painter, const QRect& place, const QIcon& icon,
                                     const Entry& entry) {
    if (entry.isCursor) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(look::paper);
        painter.drawRoundedRect(place.adjusted(-plateEdge, -plateEdge, plateEdge, plateEdge), 4, 4);
    }
    painter.setOpacity(entry.isUndone ? undoneOpacity : 1.0);
    icon.paint(&painter, place);
    painter.setOpacity(1.0);
}

void HistoryRowPainter::paintMarks(QPainter& painter, const Entry& entry) const {
    const Marks marks(entry);
    const QFont small = rowFont(entry.font, smallPx);
    if (!marks.now.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(entry.isCursor ? look::paper : look::chosen);
        painter.drawRoundedRect(marks.now, nowHeight / 2.0, nowHeight / 2.0);
        painter.setFont(rowFont(entry.font, smallPx, QFont::DemiBold));
        painter.setPen(entry.isCursor ? look::chosen : look::paper);
        painter.drawText(marks.now, Qt::AlignCenter, nowWord);
    }
    if (!marks.undone.isEmpty()) {
        painter.setFont(small);
        painter.setPen(entry.secondary());
        painter.drawText(marks.undone, Qt::AlignVCenter | Qt::TextDontClip, undoneWord);
    }
    if (!marks.file.isEmpty())
        paintText(painter, marks.file, marks.fileText, small, entry.secondary());
    if (!marks.filePicture.isEmpty())
        paintPicture(painter, marks.filePicture, kindIcon(QLatin1String(changeKind::saved)), entry);
}

void HistoryRowPainter::paintText(QPainter& painter, const QRect& place, const QString& text,
                                  const QFont& font, const QColor& colour) const {
    const QString& wanted = model_.filter();
    if (wanted.isEmpty() || !text.contains(wanted, Qt::CaseInsensitive)) {
        painter.setFont(font);
        painter.setPen(colour);
        painter.drawText(place, Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, text);
        return;
    }
    QList<QTextLayout::FormatRange> found;
    QTextCharFormat mark;
    mark.setBackground(look::find);
    mark.setForeground(look::inkText);
    for (qsizetype at = text.indexOf(wanted, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(wanted, at + wanted.size(), Qt::CaseInsensitive))
        found.push_back({static_cast<int>(at), static_cast<int>(wanted.size()), mark});
    QTextLayout layout(text, font);
    layout.setFormats(found);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    painter.setPen(colour);
    const double height = layout.boundingRect().height();
    layout.draw(&painter, QPointF(place.left(), place.top() + (place.height() - height) / 2));
}

bool HistoryRowPainter::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const HistoryModel::Line* const line = model_.line(index.row());
    const bool isCut = line != nullptr && QFontMetrics(option.font).horizontalAdvance(line->text) >
                                              entryOf(option, *line).text().width();
    QToolTip::showText(event->globalPos(), isCut ? line->text : QString(), view);
    return true;
}

} // namespace velorin
