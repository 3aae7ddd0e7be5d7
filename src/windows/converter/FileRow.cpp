// Painting of the rows of the converter's list.
#include "windows/converter/FileRow.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/RowFont.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

constexpr int rowWidth = 742;
constexpr int nameWidth = 364;
constexpr int resultLeft = 411;
constexpr int resultWidth = 224;
constexpr int smallestResult = 40;
constexpr int barWidth = 200;
constexpr int barGap = 8;
constexpr int percentWidth = 44;
constexpr int buttonWidth = 26;
constexpr int buttonPicture = 16;
constexpr int lastButton = 41; ///< from the right end of the row to the last button
constexpr int buttonStep = 30;
constexpr QColor trackOnCursor{255, 255, 255, 90};

void drawElided(QPainter& painter, const QRect& place, const std::string& text,
                Qt::TextElideMode mode) {
    const QString fits =
        painter.fontMetrics().elidedText(QString::fromStdString(text), mode, place.width());
    painter.drawText(place, Qt::AlignVCenter | Qt::TextSingleLine, fits);
}

} // namespace

const char* pictureOf(RowButton button) {
    constexpr std::array pictures{"velorin", "play-small-ink", "glyph-folder-ink",
                                  "title-close-ink"};
    return pictures[static_cast<std::size_t>(button)];
}

const char* nameOf(RowButton button) {
    constexpr std::array names{"Open in Velorin", "Play", "Show in folder", "Take out"};
    return names[static_cast<std::size_t>(button)];
}

bool hasButton(FileState state, RowButton button) {
    if (button == RowButton::takeOut)
        return state == FileState::waiting || state == FileState::working;
    return state == FileState::done;
}

RowParts::RowParts(const QRect& row) : row_(row) {
    const int x = row.left();
    const int y = row.top();
    const int more = row.width() - rowWidth;
    const int moreName = std::max(more, 0) / 2;
    const int left = x + resultLeft + moreName;
    const int end = row.left() + row.width() - lastButton;
    state = {x + 11, y + 10, 16, 16};
    name = {x + 39, y + 2, nameWidth + moreName, 18};
    words = {x + 39, y + 18, nameWidth + moreName, 15};
    result = {left, y, std::max(resultWidth + more - moreName, smallestResult), row.height()};
    const int room = end - left - percentWidth - 2 * barGap;
    bar = {left, y + 13, std::clamp(room, smallestResult, barWidth), 10};
    percent = {bar.right() + 1 + barGap, y, percentWidth, row.height()};
}

QRect RowParts::button(RowButton button) const {
    const int right = button == RowButton::openInVelorin ? 2 : button == RowButton::play ? 1 : 0;
    return {row_.left() + row_.width() - lastButton - right * buttonStep, row_.top() + 6,
            buttonWidth, 24};
}

/// What one painting of a row knows.
struct FileRowPainter::Entry {
    const QueuedFile& file;
    RowParts parts;
    int row;
    QFont font;
    bool isCursor;
    bool isPointed;

    [[nodiscard]] QColor primary() const { return isCursor ? look::paper : look::inkText; }
    [[nodiscard]] QColor secondary() const {
        if (isCursor)
            return look::paper;
        return file.state == FileState::failed ? look::danger : look::ink3;
    }
};

FileRowPainter::FileRowPainter(const FileQueue& queue, QObject* parent)
    : QStyledItemDelegate(parent),
      queue_(queue),
      states_{lookIcon("row-waiting"), lookIcon("row-working"), lookIcon("row-done"),
              lookIcon("row-failed")} {
    for (const RowButton button : rowButtons)
        buttons_[static_cast<std::size_t>(button)] = lookIcon(QLatin1String(pictureOf(button)));
}

QSize FileRowPainter::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {resultLeft, rowHeight};
}

void FileRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    const QueuedFile* const file = queue_.file(index.row());
    if (file == nullptr)
        return;
    const Entry entry{*file,
                      RowParts(option.rect),
                      index.row(),
                      option.font,
                      option.state.testFlag(QStyle::State_Selected),
                      index.row() == pointerRow};
    const QColor ground = entry.isCursor    ? look::chosen
                          : entry.isPointed ? look::paper3
                          : index.row() % 2 ? look::paper2
                                            : look::paper;
    painter->save();
    painter->fillRect(option.rect, ground);
    painter->setRenderHint(QPainter::Antialiasing);
    paintState(*painter, entry);
    paintTexts(*painter, entry);
    if (file->state == FileState::working)
        paintBar(*painter, entry);
    if (!entry.isCursor && (showsAllButtons || entry.isPointed))
        paintButtons(*painter, entry);
    painter->restore();
}

// A file that was stopped waits for another start.
void FileRowPainter::paintState(QPainter& painter, const Entry& entry) const {
    const std::size_t picture =
        entry.file.state == FileState::stopped ? 0 : static_cast<std::size_t>(entry.file.state);
    const QRect place = entry.parts.state;
    painter.save();
    if (entry.file.state == FileState::working && turn != 0.0) {
        const QPointF middle = QRectF(place).center();
        painter.translate(middle);
        painter.rotate(turn);
        painter.translate(-middle);
    }
    states_[picture].paint(&painter, place);
    painter.restore();
}

void FileRowPainter::paintTexts(QPainter& painter, const Entry& entry) {
    const RowParts& parts = entry.parts;
    painter.setFont(rowFont(entry.font, 12, entry.isCursor ? QFont::DemiBold : QFont::Medium));
    painter.setPen(entry.primary());
    drawElided(painter, parts.name, entry.file.source.filename().string(), Qt::ElideMiddle);
    painter.setFont(rowFont(entry.font, 11, QFont::Normal));
    painter.setPen(entry.secondary());
    drawElided(painter, parts.words, FileQueue::words(entry.file), Qt::ElideRight);
    const bool isFailed = entry.file.state == FileState::failed;
    painter.setFont(rowFont(entry.font, 12, isFailed ? QFont::DemiBold : QFont::Normal));
    painter.setPen(isFailed ? entry.secondary() : entry.primary());
    drawElided(painter, parts.result, FileQueue::resultName(entry.file), Qt::ElideMiddle);
}

void FileRowPainter::paintBar(QPainter& painter, const Entry& entry) {
    const QRectF bar = entry.parts.bar;
    const double radius = bar.height() / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(entry.isCursor ? trackOnCursor : look::rule);
    painter.drawRoundedRect(bar, radius, radius);
    painter.save();
    QPainterPath whole;
    whole.addRoundedRect(bar, radius, radius);
    painter.setClipPath(whole, Qt::IntersectClip);
    QRectF done = bar;
    done.setWidth(bar.width() * std::clamp(entry.file.share, 0.0, 1.0));
    painter.fillRect(done, entry.isCursor ? look::paper : look::chosen);
    painter.restore();
    painter.setFont(rowFont(entry.font, 12, QFont::DemiBold));
    painter.setPen(entry.isCursor ? look::paper : look::chosen);
    painter.drawText(entry.parts.percent, Qt::AlignVCenter,
                     QStringLiteral("%1 %").arg(static_cast<int>(entry.file.share * 100.0)));
}

void FileRowPainter::paintButtons(QPainter& painter, const Entry& entry) const {
    for (const RowButton button : rowButtons) {
        if (!hasButton(entry.file.state, button))
            continue;
        const QRect place = entry.parts.button(button);
        if (entry.isPointed && hasPointerButton && button == pointerButton) {
            painter.setPen(look::rule);
            painter.setBrush(isButtonHeld ? look::rule : look::paper);
            painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        }
        QRect picture(0, 0, buttonPicture, buttonPicture);
        picture.moveCenter(place.center());
        buttons_[static_cast<std::size_t>(button)].paint(&painter, picture);
    }
}

bool FileRowPainter::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QueuedFile* const file = queue_.file(index.row());
    if (event->type() != QEvent::ToolTip || file == nullptr)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const RowParts parts(option.rect);
    QString tip = QString::fromStdString(file->source.string() + "\n" + FileQueue::words(*file));
    for (const RowButton button : rowButtons)
        if (hasButton(file->state, button) && parts.button(button).contains(event->pos()))
            tip = QLatin1String(nameOf(button));
    QToolTip::showText(event->globalPos(), tip, view);
    return true;
}

} // namespace velorin
