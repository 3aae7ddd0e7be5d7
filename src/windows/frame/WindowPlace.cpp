// The place and size of a window in twips.
#include "windows/frame/WindowPlace.h"

#include "platform/Desktop.h"

#include <QWidget>

#include <cmath>

namespace velorin {

namespace {

int toPixels(float twips) {
    return static_cast<int>(std::lround(twips / static_cast<float>(platform::twipsPerPixel)));
}

float toTwips(int pixels) {
    return static_cast<float>(pixels * platform::twipsPerPixel);
}

} // namespace

bool isPlaceOfADesktop(float left, float top) {
    return std::abs(left) <= largestTwips && std::abs(top) <= largestTwips;
}

float WindowPlace::Left() const {
    return keepsValues() && window_.x() == placedAt_.x() ? left_ : toTwips(window_.x());
}

float WindowPlace::Top() const {
    return keepsValues() && window_.y() == placedAt_.y() ? top_ : toTwips(window_.y());
}

float WindowPlace::Width() const {
    return keepsValues() && window_.width() == placedSize_.width() ? width_
                                                                   : toTwips(window_.width());
}

float WindowPlace::Height() const {
    return keepsValues() && window_.height() == placedSize_.height() ? height_
                                                                     : toTwips(window_.height());
}

// A maximised window is where the screen begins, whatever was set before.
bool WindowPlace::keepsValues() const {
    return !window_.isMaximized();
}

void WindowPlace::moveTo(float left, float top) {
    left_ = left;
    top_ = top;
    placedAt_ = QPoint(toPixels(left), toPixels(top));
    window_.move(placedAt_);
}

void WindowPlace::resizeTo(float width, float height) {
    width_ = width;
    height_ = height;
    placedSize_ = QSize(toPixels(width), toPixels(height));
    window_.resize(placedSize_);
}

void WindowPlace::comeIntoReach(const QRect& title, const Screens& screens) {
    if (window_.isMaximized() || isTitleInReach(title.translated(window_.pos()), screens)) {
        return;
    }
    const QPoint next = placeInNearest(QRect(window_.pos(), window_.size()), screens);
    moveTo(next.x() == window_.x() ? Left() : toTwips(next.x()),
           next.y() == window_.y() ? Top() : toTwips(next.y()));
}

} // namespace velorin
