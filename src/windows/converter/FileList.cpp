// The list of files in the converter's window.
#include "windows/converter/FileList.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>

#include <utility>

namespace velorin {

namespace {

constexpr int turnEveryMs = 50;
constexpr double degreesOfATurn = 18.0; ///< once round in a second

} // namespace

FileList::FileList(FileQueue& queue, QWidget* parent)
    : QListView(parent), queue_(queue), painter_(new FileRowPainter(queue, this)) {
    makeButtons(); // first: a view is laid out while it is set up
    setProperty("role", "paper");
    setItemDelegate(painter_);
    setModel(&queue);
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
    setAcceptDrops(false);
    viewport()->setAcceptDrops(false); // the window takes them
    turning_.setInterval(turnEveryMs);
    connect(&turning_, &QTimer::timeout, this, [this] { turnPictures(); });
    connect(&queue, &QAbstractItemModel::dataChanged, this, [this] { placeButtons(); });
    connect(&queue, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex&, int first) {
        if (!currentIndex().isValid())
            setCurrentIndex(queue_.index(first));
    });
    connect(&queue, &QAbstractItemModel::modelReset, this, [this] { placeButtons(); });
    connect(&queue, &QAbstractItemModel::rowsRemoved, this, [this] { placeButtons(); });
}

void FileList::makeButtons() {
    for (const RowButton button : rowButtons) {
        auto* const control = new QToolButton(parentWidget());
        control->setProperty("role", "row");
        control->setObjectName(QStringLiteral("row%1").arg(static_cast<int>(button)));
        control->setIcon(lookIcon(QLatin1String(pictureOf(button))));
        control->setIconSize(QSize(16, 16));
        control->setFocusPolicy(Qt::TabFocus);
        control->setCursor(Qt::ArrowCursor);
        control->hide();
        connect(control, &QToolButton::clicked, this,
                [this, button] { press(currentIndex().row(), button); });
        buttons[static_cast<std::size_t>(button)] = control;
    }
}

void FileList::setHot(bool hot) {
    isHot_ = hot;
    viewport()->update();
}

void FileList::showAllButtons(bool all) {
    painter_->showsAllButtons = all;
    viewport()->update();
}

/// The focus must not be on a button that goes.
void FileList::placeButtons() {
    const QModelIndex cursor = currentIndex();
    const QueuedFile* const file = queue_.file(cursor.row());
    for (const RowButton button : rowButtons) {
        QToolButton* const control = buttons[static_cast<std::size_t>(button)];
        const QRect place = RowParts(visualRect(cursor)).button(button);
        const bool isThere = file != nullptr && hasButton(file->state, button) && !isHidden() &&
                             viewport()->rect().contains(place);
        if (!isThere && control->hasFocus())
            setFocus();
        control->move(viewport()->mapTo(parentWidget(), place.topLeft()));
        control->resize(place.size());
        control->setVisible(isThere);
    }
    bool turns = false;
    for (int row = 0; row < queue_.rowCount() && !turns; ++row)
        turns = queue_.file(row)->state == FileState::working;
    if (turns && isAnimated() && !turning_.isActive())
        turning_.start();
    else if (!turns)
        turning_.stop();
}

bool FileList::isAnimated() const {
    return style()->styleHint(QStyle::SH_Widget_Animate, nullptr, this) != 0;
}

void FileList::turnPictures() {
    painter_->turn += degreesOfATurn;
    if (painter_->turn >= 360.0)
        painter_->turn -= 360.0;
    for (int row = 0; row < queue_.rowCount(); ++row) {
        const QRect place = visualRect(queue_.index(row));
        if (queue_.file(row)->state == FileState::working && place.intersects(viewport()->rect()))
            viewport()->update(RowParts(place).state.adjusted(-4, -4, 4, 4));
    }
}

void FileList::press(int row, RowButton button) {
    const QueuedFile* const file = queue_.file(row);
    if (file != nullptr && hasButton(file->state, button) && onButton)
        onButton(row, button);
}

void FileList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    placeButtons();
    if (onCursor)
        onCursor();
}

void FileList::contextMenuEvent(QContextMenuEvent* event) {
    const QRect cursor = visualRect(currentIndex());
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    openMenu(isByKey ? viewport()->mapToGlobal(cursor.bottomLeft()) : event->globalPos());
}

void FileList::openMenu(QPoint place) {
    const int row = currentIndex().row();
    const QueuedFile* const file = queue_.file(row);
    if (file == nullptr)
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const RowButton button : rowButtons) {
        const bool isTakenOut = button == RowButton::takeOut;
        if (!isTakenOut && !hasButton(file->state, button))
            continue;
        QAction* const action =
            menu->addAction(QLatin1String(nameOf(button)), [this, id = file->id, button] {
                if (const int now = queue_.rowOf(id); now >= 0 && onButton)
                    onButton(now, button);
            });
        if (isTakenOut)
            action->setShortcut(QKeySequence(Qt::Key_Delete));
    }
    menu->popup(place);
}

void FileList::keyPressEvent(QKeyEvent* event) {
    const bool isOfTheWindow = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                               event->key() == Qt::Key_Escape;
    if (isOfTheWindow)
        event->ignore();
    else if (event->key() == Qt::Key_Delete && onButton && currentIndex().isValid())
        onButton(currentIndex().row(), RowButton::takeOut);
    else
        QListView::keyPressEvent(event);
}

void FileList::follow(QPoint place) {
    const QModelIndex index = indexAt(place);
    const QueuedFile* const file = queue_.file(index.row());
    painter_->pointerRow = index.row();
    painter_->hasPointerButton = false;
    for (const RowButton button : rowButtons)
        if (file != nullptr && hasButton(file->state, button) &&
            RowParts(visualRect(index)).button(button).contains(place)) {
            painter_->hasPointerButton = true;
            painter_->pointerButton = button;
        }
    viewport()->update();
}

/// A press on a button of another row does not move the cursor, so that the report stays.
void FileList::mousePressEvent(QMouseEvent* event) {
    follow(event->position().toPoint());
    painter_->isButtonHeld = painter_->hasPointerButton && event->button() == Qt::LeftButton;
    heldRow_ = painter_->isButtonHeld ? painter_->pointerRow : -1;
    heldButton_ = painter_->pointerButton;
    if (!painter_->isButtonHeld)
        QListView::mousePressEvent(event);
}

void FileList::mouseMoveEvent(QMouseEvent* event) {
    if (!painter_->isButtonHeld)
        QListView::mouseMoveEvent(event);
    follow(event->position().toPoint());
}

void FileList::mouseReleaseEvent(QMouseEvent* event) {
    const int row = std::exchange(heldRow_, -1);
    painter_->isButtonHeld = false;
    follow(event->position().toPoint());
    if (row < 0)
        return QListView::mouseReleaseEvent(event);
    if (painter_->hasPointerButton && painter_->pointerRow == row &&
        painter_->pointerButton == heldButton_)
        press(row, heldButton_);
}

void FileList::leaveEvent(QEvent* event) {
    QListView::leaveEvent(event);
    painter_->pointerRow = -1;
    painter_->hasPointerButton = false;
    viewport()->update();
}

void FileList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (!hasFocus() && !isHot_)
        return;
    QPainter painter(viewport());
    const int w = viewport()->width();
    const int h = viewport()->height();
    for (const QRect& side : {QRect(0, 0, w, 1), QRect(0, h - 1, w, 1), QRect(0, 0, 1, h)})
        painter.fillRect(side, look::sky);
    if (!verticalScrollBar()->isVisible())
        painter.fillRect(QRect(w - 1, 0, 1, h), look::sky);
}

void FileList::hideEvent(QHideEvent* event) {
    QListView::hideEvent(event);
    placeButtons();
}

void FileList::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    placeButtons();
}

void FileList::scrollContentsBy(int dx, int dy) {
    QListView::scrollContentsBy(dx, dy);
    placeButtons();
    viewport()->update(); // the focus ring does not move
}

void FileList::updateGeometries() {
    QListView::updateGeometries();
    verticalScrollBar()->setSingleStep(FileRowPainter::rowHeight);
    placeButtons();
}

} // namespace velorin
