// Shows lines for a few seconds.
#include "windows/help/ShortHint.h"

#include "windows/help/HintPanel.h"
#include "windows/texts/ScreenReader.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr int leastMs = 3000;
constexpr int mostMs = 30'000;
constexpr int msPerLetter = 60; ///< 17 letters a second, read without haste
constexpr QPoint placeInWindow{60, 80};

} // namespace

ShortHint::ShortHint() {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { hide(); });
}

ShortHint::~ShortHint() = default;

void ShortHint::show(QWidget& window, const std::string& lines) {
    if (!window.isVisible() || window.isMinimized())
        return;
    if (!panel_) {
        panel_ = std::make_unique<HintPanel>("ShortHint", frames_);
        showToReaders(*panel_, ControlKind::alert);
        panel_->onClose = [this](HintEnd) { hide(); };
    }
    const QString text = QString::fromStdString(lines);
    panel_->setText(text, false);
    panel_->setWindowTitle(QStringLiteral("Velorin Hint"));
    panel_->setAccessibleName(text);
    panel_->move(window.mapToGlobal(placeInWindow));
    panel_->show();
    announceAlert(*panel_);
    timer_.start(std::clamp(msPerLetter * static_cast<int>(text.size()), leastMs, mostMs));
}

void ShortHint::hide() {
    timer_.stop();
    if (panel_)
        panel_->hide();
}

QWidget* ShortHint::window() const {
    return panel_.get();
}

std::string ShortHint::text() const {
    const bool isShown = panel_ && panel_->isVisible();
    return isShown ? panel_->Label1->text().toStdString() : std::string();
}

} // namespace velorin
