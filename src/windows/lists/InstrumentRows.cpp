// The rows of an open list of instruments: cursor and pointer.
#include "windows/lists/InstrumentRows.h"

#include "windows/frame/LookColors.h"
#include "windows/lists/InstrumentModel.h"
#include "windows/lists/InstrumentRowPainter.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace velorin {

namespace {

constexpr int rowHeight = InstrumentRowPainter::rowHeight;
constexpr int emptyTextLeft = 11;

} // namespace

InstrumentRows::InstrumentRows(InstrumentModel& model, QWidget* parent)
    : QListView(parent), model_(model), painter_(new InstrumentRowPainter(model, this)) {
    setItemDelegate(painter_);
    setModel(&model);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollMode(ScrollPerPixel);
    verticalScrollBar()->setSingleStep(rowHeight);
    setMouseTracking(true);
}

int InstrumentRows::cursor() const {
    return model_.placeOf(currentIndex().row());
}

void InstrumentRows::showChosen(int place) {
    painter_->chosenPlace = place;
    painter_->soundingPlace = -1;
    painter_->pointerRow = -1;
    const int row = model_.rowOf(place);
    setCursor(std::max(row, 0));
    doItemsLayout();
    const int top = visualRect(currentIndex()).bottom() + 1 - rowHeight;
    const int middle = (viewport()->height() / rowHeight - 1) / 2 * rowHeight;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + top - middle);
}

void InstrumentRows::showSounding(int place) {
    painter_->soundingPlace = place;
    viewport()->update();
}

/// The keyboard is in the search, so a screen reader does not follow the cursor by itself.
void InstrumentRows::setCursor(int row) {
    setCurrentIndex(model_.index(row, 0));
    if (row < 0 || row >= model_.rowCount() || !QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

void InstrumentRows::moveCursorBy(int rows) {
    const int last = model_.rowCount() - 1;
    if (last < 0)
        return;
    setPointerRow(-1);
    setCursor(std::clamp(currentIndex().row() + rows, 0, last));
    scrollTo(currentIndex());
}

void InstrumentRows::moveCursorToEnd(bool isLast) {
    moveCursorBy(isLast ? model_.rowCount() : -model_.rowCount());
}

void InstrumentRows::setCursorToFirst() {
    painter_->pointerRow = -1;
    setCursor(0);
    scrollToTop();
}

int InstrumentRows::rowsOfAPage() const {
    return std::max(viewport()->height() / rowHeight - 1, 1);
}

int InstrumentRows::rowAt(QPoint place) const {
    const QModelIndex index = indexAt(place);
    const bool isHeading =
        model_.hasHeading(index.row()) && place.y() < visualRect(index).top() + rowHeight;
    return index.isValid() && !isHeading ? index.row() : -1;
}

void InstrumentRows::setPointerRow(int row) {
    if (row == painter_->pointerRow)
        return;
    painter_->pointerRow = row;
    viewport()->update();
    if (onPointed)
        onPointed(model_.placeOf(row));
}

void InstrumentRows::mousePressEvent(QMouseEvent* event) {
    setPointerRow(rowAt(event->position().toPoint()));
}

void InstrumentRows::mouseMoveEvent(QMouseEvent* event) {
    setPointerRow(rowAt(event->position().toPoint()));
}

// A press that opened the list may be released here; it counts if the pointer has moved to the row.
void InstrumentRows::mouseReleaseEvent(QMouseEvent* event) {
    const int row = rowAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && row >= 0 && row == painter_->pointerRow && onTaken)
        onTaken(model_.placeOf(row));
}

void InstrumentRows::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void InstrumentRows::leaveEvent(QEvent* event) {
    QListView::leaveEvent(event);
    setPointerRow(-1);
}

void InstrumentRows::scrollContentsBy(int dx, int dy) {
    QListView::scrollContentsBy(dx, dy);
    if (painter_->pointerRow >= 0)
        setPointerRow(rowAt(viewport()->mapFromGlobal(QCursor::pos())));
}

void InstrumentRows::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (model_.rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(look::ink3);
    painter.drawText(QRect(emptyTextLeft, 0, viewport()->width() - emptyTextLeft, rowHeight),
                     Qt::AlignVCenter, emptyText);
}

} // namespace velorin
