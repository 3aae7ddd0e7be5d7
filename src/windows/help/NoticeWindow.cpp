// Shows notices one after the other.
#include "windows/help/NoticeWindow.h"

#include "windows/frame/ScreenReach.h"
#include "windows/help/HintPanel.h"
#include "windows/texts/ScreenReader.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>
#include <utility>

namespace velorin {

namespace {

constexpr int cornerGap = 12; ///< between the notice and the edges of its corner, pixels

/// True if the notice would cover a visible tool window.
bool coversToolWindow(const QRect& notice, const QWidget& own) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::ranges::any_of(windows, [&](const QWidget* window) {
        return window != &own && window->isVisible() && window->windowType() == Qt::Tool &&
               window->geometry().intersects(notice);
    });
}

} // namespace

NoticeWindow::NoticeWindow(platform::Desktop& desktop) : desktop_(desktop) {}

NoticeWindow::~NoticeWindow() {
    stop();
}

void NoticeWindow::start(platform::Notices& notices, QWidget& corner) {
    notices_ = &notices;
    corner_ = &corner;
    corner.window()->installEventFilter(this);
    notices.onPosted([this] { showNext(); });
}

// Notices that were not shown are in the log.
void NoticeWindow::stop() {
    if (notices_ == nullptr)
        return;
    notices_->onPosted({});
    notices_ = nullptr;
    corner_->window()->removeEventFilter(this);
    current_.reset();
    showOrHide();
}

QWidget* NoticeWindow::window() const {
    return panel_.get();
}

HintPanel& NoticeWindow::panel() {
    if (!panel_) {
        panel_ = std::make_unique<HintPanel>("Notice", frames_);
        showToReaders(*panel_, ControlKind::alert);
        panel_->onClose = [this](HintEnd end) { closed(end == HintEnd::text); };
    }
    return *panel_;
}

void NoticeWindow::showNext() {
    if (notices_ == nullptr || current_)
        return;
    current_ = notices_->take();
    if (!current_)
        return;
    const QString text = QString::fromStdString(current_->text);
    panel().setText(text, false);
    panel().setWindowTitle(QStringLiteral("Velorin Notice"));
    panel().setAccessibleName(QStringLiteral("Notice: ") + text.simplified());
    place();
    showOrHide();
    announceAlert(panel());
}

void NoticeWindow::place() {
    const QRect room(corner_->mapToGlobal(QPoint(0, 0)), corner_->size());
    const QSize size = panel().size();
    QRect place({room.x() + room.width() - size.width() - cornerGap,
                 room.y() + room.height() - size.height() - cornerGap},
                size);
    place.moveTopLeft(placeInNearest(place, desktop_.screens()));
    if (coversToolWindow(place, panel())) {
        place.moveTop(room.y() + cornerGap);
        place.moveTopLeft(placeInNearest(place, desktop_.screens()));
    }
    panel().move(place.topLeft());
}

void NoticeWindow::showOrHide() {
    if (!panel_)
        return;
    const bool shows =
        current_ && !isBlocked_ && corner_->isVisible() && !corner_->window()->isMinimized();
    panel_->setVisible(shows);
}

void NoticeWindow::closed(bool withText) {
    if (!current_)
        return;
    const platform::Notice read = *std::exchange(current_, std::nullopt);
    showOrHide();
    if (withText && !read.scoreToOpen.empty() && openScore)
        openScore(read.scoreToOpen);
    showNext();
}

// A dialog blocks other windows, so a notice above it could not be closed.
bool NoticeWindow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::WindowBlocked:
    case QEvent::WindowUnblocked:
        isBlocked_ = event->type() == QEvent::WindowBlocked;
        showOrHide();
        break;
    case QEvent::WindowStateChange:
    case QEvent::Show:
    case QEvent::Hide:
        showOrHide();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace velorin
