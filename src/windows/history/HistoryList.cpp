// The list of states in the History window: cursor, pointer and keys.
#include "windows/history/HistoryList.h"

#include "windows/frame/LookColors.h"
#include "windows/history/HistoryModel.h"
#include "windows/history/HistoryRowPainter.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace velorin {

HistoryList::HistoryList(HistoryModel& model, QWidget* parent)
    : QListView(parent), model_(model), painter_(new HistoryRowPainter(model, this)) {
    setProperty("role", "paper");
    setItemDelegate(painter_);
    setModel(&model);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollMode(ScrollPerPixel);
    verticalScrollBar()->setSingleStep(HistoryRowPainter::entryHeight);
    setMouseTracking(true);
}

std::int64_t HistoryList::cursorId() const {
    const HistoryModel::Line* const line = model_.line(currentIndex().row());
    return line != nullptr ? line->id : 0;
}

std::int64_t HistoryList::shownId() const {
    const HistoryModel::Line* const pointed = model_.line(painter_->pointerRow());
    return pointed != nullptr ? pointed->id : cursorId();
}

void HistoryList::setCursorTo(std::int64_t id) {
    const int row = id != 0 ? model_.rowOf(id) : -1;
    setCurrentIndex(model_.index(row >= 0 ? row : entryFrom(0, 1), 0));
}

void HistoryList::keepPlaceDuring(const std::function<void()>& change) {
    const std::int64_t cursor = cursorId();
    const bool isAtTop = verticalScrollBar()->value() == 0;
    const QModelIndex top = indexAt(QPoint(0, 0));
    // A day has no id, so the entry below it is the one that keeps its place.
    const int anchorRow = entryFrom(top.row(), 1);
    const HistoryModel::Line* const line = model_.line(anchorRow);
    const std::int64_t anchor = line != nullptr ? line->id : 0;
    const int y = anchor != 0 ? visualRect(model_.index(anchorRow, 0)).top() : 0;
    isChanging_ = true;
    painter_->setPointerRow(-1);
    change();
    setCursorTo(cursor);
    const int row = anchor != 0 && !isAtTop ? model_.rowOf(anchor) : -1;
    if (row >= 0) {
        const int now = visualRect(model_.index(row, 0)).top();
        verticalScrollBar()->setValue(verticalScrollBar()->value() + now - y);
    } else if (isAtTop) {
        scrollToTop();
    }
    isChanging_ = false;
    tellShown();
}

void HistoryList::tellShown() const {
    if (onShown && !isChanging_)
        onShown();
}

int HistoryList::entryFrom(int row, int step) const {
    for (; row >= 0 && row < model_.rowCount(); row += step)
        if (!model_.isDay(row))
            return row;
    return -1;
}

QModelIndex HistoryList::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const int row = currentIndex().row();
    const int last = model_.rowCount() - 1;
    const int page = std::max(viewport()->height() / HistoryRowPainter::entryHeight - 1, 1);
    int next = -1;
    switch (action) {
    case MoveUp:
    case MovePrevious:
    case MoveLeft:
        next = entryFrom(row - 1, -1);
        break;
    case MoveDown:
    case MoveNext:
    case MoveRight:
        next = entryFrom(row + 1, 1);
        break;
    case MovePageUp:
        next = entryFrom(std::max(row - page, 0), -1);
        break;
    case MovePageDown:
        next = entryFrom(std::min(row + page, last), 1);
        break;
    case MoveHome:
        break;
    case MoveEnd:
        next = entryFrom(last, -1);
        break;
    }
    const bool isUpwards = action == MovePageUp || action == MoveHome;
    if (next < 0)
        next = isUpwards ? entryFrom(0, 1) : row;
    // The heading of the first day comes into view with its first entry.
    if (next == entryFrom(0, 1))
        scrollToTop();
    return model_.index(next, 0);
}

void HistoryList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    tellShown();
}

void HistoryList::forgetPointer() {
    setPointerRow(-1);
}

void HistoryList::setPointerRow(int row) {
    if (row >= 0 && model_.isDay(row))
        row = -1;
    if (row == painter_->pointerRow())
        return;
    painter_->setPointerRow(row);
    viewport()->update();
    tellShown();
}

void HistoryList::keyPressEvent(QKeyEvent* event) {
    forgetPointer();
    const bool isText = !event->text().isEmpty() && event->text().at(0).isPrint() &&
                        !event->text().at(0).isSpace() &&
                        (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
        event->key() == Qt::Key_Enter)
        event->ignore(); // keys of the window
    else if (isText && onTyped)
        onTyped(event->text());
    else
        QListView::keyPressEvent(event);
}

void HistoryList::mouseMoveEvent(QMouseEvent* event) {
    QListView::mouseMoveEvent(event);
    setPointerRow(indexAt(event->position().toPoint()).row());
}

void HistoryList::mouseDoubleClickEvent(QMouseEvent* event) {
    QListView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && model_.line(index.row()) != nullptr && onChosen)
        onChosen();
}

void HistoryList::leaveEvent(QEvent* event) {
    QListView::leaveEvent(event);
    forgetPointer();
}

void HistoryList::scrollContentsBy(int dx, int dy) {
    QListView::scrollContentsBy(dx, dy);
    viewport()->update(); // the focus ring does not move
    if (painter_->pointerRow() >= 0)
        setPointerRow(indexAt(viewport()->mapFromGlobal(QCursor::pos())).row());
}

void HistoryList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    QPainter painter(viewport());
    if (model_.rowCount() == 0) {
        painter.setPen(look::ink3);
        painter.drawText(viewport()->rect(), Qt::AlignCenter, emptyText);
    }
    if (hasFocus()) {
        const int w = viewport()->width();
        const int h = viewport()->height();
        for (const QRect& side : {QRect(0, 0, w, 1), QRect(0, h - 1, w, 1), QRect(0, 0, 1, h)})
            painter.fillRect(side, look::sky);
    }
}

} // namespace velorin
