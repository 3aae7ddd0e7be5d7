// The frame of the converter's window.
#include "windows/converter/ConverterFrame.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"
#include "windows/frame/WindowKeys.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>

namespace velorin {

namespace {

constexpr int edgePx = 6;    ///< from the border to where a press resizes
constexpr int cornerPx = 16; ///< along the border, at each end

} // namespace

ConverterFrame::ConverterFrame()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      lblTitle(makeLabel(this, QRect(), QStringLiteral("Velorin Converter"), "title")),
      imgTitleHelp(makeTitleButton("imgTitleHelp", "title-help")),
      imgTitleMinimize(makeTitleButton("imgTitleMinimize", "title-minimise")),
      imgTitleMaxRestore(makeTitleButton("imgTitleMaxRestore", "title-maximise")),
      imgTitleClose(makeTitleButton("imgTitleClose", "title-close")),
      frame_(*this, FrameKind::tool, toolWindowEllipse, state_),
      picture_(new QLabel(this)) {
    setObjectName("Converter");
    setWindowTitle(lblTitle->text());
    setAttribute(Qt::WA_TranslucentBackground);
    setMouseTracking(true);
    const QIcon icon = lookIcon("velorin-converter");
    setWindowIcon(icon);
    picture_->setPixmap(icon.pixmap(QSize(16, 16), devicePixelRatioF()));
    picture_->setAccessibleName(windowTitle());
    for (QWidget* const part : {static_cast<QWidget*>(lblTitle), static_cast<QWidget*>(picture_)})
        part->setAttribute(Qt::WA_TransparentForMouseEvents);
    imgTitleClose->setProperty("danger", true);
    connect(imgTitleHelp, &QToolButton::clicked, this, [this] {
        if (onHelp)
            onHelp();
    });
    connect(imgTitleMinimize, &QToolButton::clicked, this, [this] { showMinimized(); });
    connect(imgTitleMaxRestore, &QToolButton::clicked, this, [this] { toggleMaximised(); });
    connect(imgTitleClose, &QToolButton::clicked, this, [this] { close(); });
    addWindowKeys(*this);
}

QToolButton* ConverterFrame::makeTitleButton(const char* name, const char* picture) {
    auto* const button = new QToolButton(this);
    button->setObjectName(name);
    button->setProperty("role", "title");
    button->setIcon(lookIcon(QLatin1String(picture)));
    button->setIconSize(QSize(16, 16));
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void ConverterFrame::layOutFrame() {
    picture_->setGeometry(12, 6, 16, 16);
    lblTitle->setGeometry(34, 0, width() - 160, toolTitleHeight);
    int x = width() - 118;
    for (QToolButton* const button :
         {imgTitleHelp, imgTitleMinimize, imgTitleMaxRestore, imgTitleClose}) {
        button->setGeometry(x, 4, 26, 20);
        button->setVisible(hasBand_);
        x += 28;
    }
    lblTitle->setVisible(hasBand_);
    picture_->setVisible(hasBand_);
    for (QWidget* const piece : frame_.Winedge)
        piece->setVisible(hasBand_);
    if (hasBand_)
        frame_.SkinToolWindow();
    else
        clearMask();
    layOut();
    update();
}

void ConverterFrame::lookForBand() {
    const QWindow* const handle = windowHandle();
    const bool hasBand = handle == nullptr || handle->frameMargins().top() == 0;
    if (hasBand == hasBand_)
        return;
    hasBand_ = hasBand;
    layOutFrame();
}

void ConverterFrame::toggleMaximised() {
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

Qt::Edges ConverterFrame::edgesAt(QPoint place) const {
    if (isMaximized() || !hasBand_)
        return {};
    const bool isAtBorder = place.x() < edgePx || place.y() < edgePx ||
                            place.x() >= width() - edgePx || place.y() >= height() - edgePx;
    if (!isAtBorder)
        return {};
    Qt::Edges edges;
    const auto isNear = [](int distance, bool isOther) {
        return distance < (isOther ? cornerPx : edgePx);
    };
    const bool isOnSide = place.x() < edgePx || place.x() >= width() - edgePx;
    const bool isOnEnd = place.y() < edgePx || place.y() >= height() - edgePx;
    edges.setFlag(Qt::LeftEdge, isNear(place.x(), isOnEnd));
    edges.setFlag(Qt::RightEdge, isNear(width() - 1 - place.x(), isOnEnd));
    edges.setFlag(Qt::TopEdge, isNear(place.y(), isOnSide));
    edges.setFlag(Qt::BottomEdge, isNear(height() - 1 - place.y(), isOnSide));
    return edges;
}

void ConverterFrame::showCursor(Qt::Edges edges) {
    const bool isSide = edges.testFlag(Qt::LeftEdge) || edges.testFlag(Qt::RightEdge);
    const bool isEnd = edges.testFlag(Qt::TopEdge) || edges.testFlag(Qt::BottomEdge);
    const bool isFalling =
        edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge);
    if (isSide && isEnd)
        setCursor(isFalling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor);
    else if (isSide || isEnd)
        setCursor(isSide ? Qt::SizeHorCursor : Qt::SizeVerCursor);
    else
        unsetCursor();
}

void ConverterFrame::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !hasBand_)
        return;
    pressedAt_ = event->globalPosition().toPoint();
    geometryAtPress_ = geometry();
    heldEdges_ = edgesAt(event->position().toPoint());
    isMoving_ = false;
    held_ = heldEdges_ ? Held::edge : Held::title;
    if (held_ == Held::edge && windowHandle()->startSystemResize(heldEdges_))
        held_ = Held::nothing;
}

// The desktop is asked only once the pointer has moved: after a plain click it could miss the
// release, and the window would stick to the pointer.
void ConverterFrame::mouseMoveEvent(QMouseEvent* event) {
    const QPoint pointer = event->globalPosition().toPoint();
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        held_ = Held::nothing;
        return showCursor(edgesAt(event->position().toPoint()));
    }
    if (held_ == Held::edge)
        return resizeTo(pointer);
    if (held_ != Held::title)
        return;
    if (isMoving_)
        return moveBy(pointer);
    if ((pointer - pressedAt_).manhattanLength() < QApplication::startDragDistance())
        return;
    if (windowHandle()->startSystemMove())
        held_ = Held::nothing;
    else
        isMoving_ = !isMaximized();
}

void ConverterFrame::moveBy(QPoint pointer) {
    move(geometryAtPress_.topLeft() + pointer - pressedAt_);
}

void ConverterFrame::resizeTo(QPoint pointer) {
    const QPoint moved = pointer - pressedAt_;
    QRect next = geometryAtPress_;
    if (heldEdges_.testFlag(Qt::LeftEdge))
        next.setLeft(std::min(next.left() + moved.x(), next.right() + 1 - minimumWidth()));
    if (heldEdges_.testFlag(Qt::TopEdge))
        next.setTop(std::min(next.top() + moved.y(), next.bottom() + 1 - minimumHeight()));
    if (heldEdges_.testFlag(Qt::RightEdge))
        next.setWidth(std::max(next.width() + moved.x(), minimumWidth()));
    if (heldEdges_.testFlag(Qt::BottomEdge))
        next.setHeight(std::max(next.height() + moved.y(), minimumHeight()));
    setGeometry(next);
}

void ConverterFrame::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        held_ = Held::nothing;
}

void ConverterFrame::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool isOnTitle = event->position().y() < contentsTop();
    if (event->button() == Qt::LeftButton && isOnTitle)
        toggleMaximised();
}

void ConverterFrame::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    unsetCursor();
}

void ConverterFrame::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    imgTitleMaxRestore->setIcon(lookIcon(isMaximized() ? "title-restore" : "title-maximise"));
    imgTitleMaxRestore->setAccessibleName(isMaximized() ? QStringLiteral("Restore")
                                                        : QStringLiteral("Maximise"));
    layOutFrame();
}

void ConverterFrame::closeEvent(QCloseEvent* event) {
    if (onClose && !onClose())
        return event->ignore();
    event->accept();
    if (onClosed)
        onClosed();
}

void ConverterFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (hasBand_)
        frame_.paintFrameGround(painter);
    else
        painter.fillRect(rect(), look::ink700);
}

void ConverterFrame::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOutFrame();
}

void ConverterFrame::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The desktop's frame is known once the window is mapped.
    QMetaObject::invokeMethod(
        this, [this] { lookForBand(); }, Qt::QueuedConnection);
}

} // namespace velorin
