// A drawing surface with a fill state: sizes, boxes, lines and circles.
#include "drawing/Picture.h"

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

constexpr int largestRadius = 64;
constexpr Colour black = rgb(0, 0, 0);

/// Blends a premultiplied pixel over `target`.
std::uint32_t over(std::uint32_t target, std::uint32_t pixel) {
    const std::uint32_t rest = 255 - (pixel >> 24);
    std::uint32_t redBlue = (target & 0xff00ffU) * rest + 0x800080U;
    redBlue = ((redBlue + (redBlue >> 8 & 0xff00ffU)) >> 8) & 0xff00ffU;
    std::uint32_t green = (target >> 8 & 0xffU) * rest + 0x80U;
    green = (green + (green >> 8)) & 0xff00U;
    return 0xff000000U | (pixel + (redBlue | green));
}

} // namespace

Picture::Picture(Colour ground, FillStyle style, Colour fill)
    : fillStyle(style), fillColor(fill), ground_(ground) {}

// The device pixel where a logical pixel begins is the rounded product. All operations use these
// edges. So at a ratio of 1.25 a logical pixel is 1 or 2 device pixels wide, and no edge is
// blurred:
//
//      logical    0   1   2   3    4
//      device     0   1   3   4    5      floor(logical * 1.25 + 0.5)
long long Picture::toDevice(long long logical) const {
    return static_cast<long long>(std::floor(static_cast<double>(logical) * ratio_ + 0.5));
}

long long Picture::toDeviceLength(int logical) const {
    return static_cast<long long>(std::ceil(logical * ratio_));
}

long long Picture::toLogical(long long device) const {
    return static_cast<long long>(std::ceil((static_cast<double>(device) + 0.5) / ratio_)) - 1;
}

void Picture::resize(int widthPx, int heightPx, double ratio) {
    widthPx = std::max(widthPx, 0);
    heightPx = std::max(heightPx, 0);
    if (widthPx == width_ && heightPx == height_ && ratio == ratio_)
        return;
    width_ = widthPx;
    height_ = heightPx;
    ratio_ = ratio;
    deviceWidth_ = static_cast<int>(toDevice(width_));
    deviceHeight_ = static_cast<int>(toDevice(height_));
    image_ = QImage();
    Cls();
}

void Picture::makePixels() const {
    if (!image_.isNull() || !hasSize())
        return;
    image_ = QImage(deviceWidth_, deviceHeight_, QImage::Format_RGB32);
    image_.setDevicePixelRatio(ratio_);
    image_.fill(toPixel(ground_));
}

const QImage& Picture::image() const {
    makePixels();
    return image_;
}

Picture::DeviceBox Picture::deviceBox(int x1, int y1, int x2, int y2) const {
    const auto edge = [this](long long logical, int limit) {
        return static_cast<int>(std::clamp<long long>(toDevice(logical), 0, limit));
    };
    return {edge(std::min(x1, x2), deviceWidth_), edge(std::min(y1, y2), deviceHeight_),
            edge(1LL + std::max(x1, x2), deviceWidth_),
            edge(1LL + std::max(y1, y2), deviceHeight_)};
}

/// Every operation calls this before it writes.
void Picture::touch(long long x1, long long y1, long long x2, long long y2) {
    makePixels();
    if (image_.isNull()) { // no size, or no memory
        deviceWidth_ = 0;
        deviceHeight_ = 0;
    }
    // `bits` detaches the image from its copies, so they do not change.
    pixels_ = reinterpret_cast<std::uint32_t*>(image_.bits());
    markTouched(x1, y1, x2, y2);
}

void Picture::markTouched(long long x1, long long y1, long long x2, long long y2) {
    x1 = std::max<long long>(x1, 0);
    y1 = std::max<long long>(y1, 0);
    x2 = std::min<long long>(x2, width_ - 1);
    y2 = std::min<long long>(y2, height_ - 1);
    if (x1 > x2 || y1 > y2)
        return;
    const QRect rect(QPoint(static_cast<int>(x1), static_cast<int>(y1)),
                     QPoint(static_cast<int>(x2), static_cast<int>(y2)));
    if (touched_.contains(rect))
        return;
    touched_ |= rect;
    if (onTouched)
        onTouched(touched_);
}

QImage& Picture::canvas() {
    touch(0, 0, width_ - 1, height_ - 1);
    return image_;
}

void Picture::Cls() {
    if (image_.isNull())
        return markTouched(0, 0, width_ - 1, height_ - 1);
    touch(0, 0, width_ - 1, height_ - 1);
    fill({0, 0, deviceWidth_, deviceHeight_}, ground_);
}

void Picture::fill(const DeviceBox& box, Colour colour) {
    if (box.empty())
        return;
    const std::uint32_t pixel = toPixel(colour);
    if (box.left == 0 && box.right == deviceWidth_) {
        std::fill(line(box.top), line(box.bottom), pixel);
        return;
    }
    for (int y = box.top; y < box.bottom; ++y)
        std::fill(line(y) + box.left, line(y) + box.right, pixel);
}

void Picture::fillBox(int x1, int y1, int x2, int y2, Colour colour) {
    const auto [left, right] = std::minmax(x1, x2);
    const auto [top, bottom] = std::minmax(y1, y2);
    touch(left, top, right, bottom);
    fill(deviceBox(x1, y1, x2, y2), colour);
}

void Picture::fillByState(int x1, int y1, int x2, int y2) {
    if (fillStyle == FillStyle::transparent)
        return;
    if (fillStyle == FillStyle::solid)
        return fill(deviceBox(x1, y1, x2, y2), fillColor);
    const DeviceBox box = deviceBox(x1, y1, x2, y2);
    const std::uint32_t pixel = toPixel(fillColor);
    for (int y = box.top; y < box.bottom; ++y)
        for (int x = box.left; x < box.right; ++x)
            if (patternCovers(fillStyle, toLogical(x), toLogical(y)))
                line(y)[x] = pixel;
}

void Picture::outlineBox(int x1, int y1, int x2, int y2, Colour colour) {
    if (x1 > x2)
        std::swap(x1, x2);
    if (y1 > y2)
        std::swap(y1, y2);
    touch(x1, y1, x2, y2);
    if (x2 - 1LL > x1 && y2 - 1LL > y1)
        fillByState(x1 + 1, y1 + 1, x2 - 1, y2 - 1);
    fill(deviceBox(x1, y1, x2, y1), colour);
    fill(deviceBox(x1, y2, x2, y2), colour);
    fill(deviceBox(x1, y1, x1, y2), colour);
    fill(deviceBox(x2, y1, x2, y2), colour);
}

void Picture::verticalLine(int x, int y1, int y2, Colour colour) {
    fillBox(x, y1, x, y2, colour);
}

void Picture::horizontalLine(int x1, int x2, int y, Colour colour) {
    fillBox(x1, y, x2, y, colour);
}

void Picture::circle(int x, int y, int radius, Colour colour) {
    if (radius < 0 || radius > largestRadius)
        return;
    const long long reach = radius + 1LL;
    touch(x - reach, y - reach, x + reach, y + reach);
    const auto [left, phaseX] = circleCorner(x - static_cast<long long>(radius));
    const auto [top, phaseY] = circleCorner(y - static_cast<long long>(radius));
    const Colour interior = fillStyle == FillStyle::transparent ? 0 : fillColor;
    const StampKey key{radius, colour, fillStyle, interior, phaseX, phaseY};
    if (fillStyle == FillStyle::solid || fillStyle == FillStyle::transparent)
        return stamp(stamps_.get(key, ratio_), left, top);
    stamp(makeStamp(key, ratio_,
                    [this, left = left, top = top](int deviceX, int deviceY) {
                        return patternCovers(fillStyle, toLogical(left + deviceX),
                                             toLogical(top + deviceY));
                    }),
          left, top);
}

/// The place of a stamp for a circle whose square begins at a logical pixel: a whole device pixel,
/// and the quarters beyond it. If the ratio is a multiple of a quarter, the place is exact. Rings
/// and heads are then concentric, and all heads look alike, since a cell of 12 is a whole number of
/// device pixels. At any other ratio the square snaps to device pixels, so it stays within the
/// saved strips.
std::pair<long long, int> Picture::circleCorner(long long logical) const {
    const double quarters = static_cast<double>(logical) * ratio_ * 4;
    if (ratio_ * 4 != std::floor(ratio_ * 4))
        return {toDevice(logical) - 1, 0};
    const double whole = std::floor(quarters / 4);
    return {static_cast<long long>(whole) - 1, static_cast<int>(quarters - whole * 4)};
}

void Picture::stamp(const Stamp& stamp, long long left, long long top) {
    if (left >= deviceWidth_ || top >= deviceHeight_ || left + stamp.size <= 0 ||
        top + stamp.size <= 0)
        return;
    const int x = static_cast<int>(left);
    const int y = static_cast<int>(top);
    for (int row = std::max(0, -y); row < std::min(stamp.size, deviceHeight_ - y); ++row) {
        const auto span = stamp.spans[static_cast<std::size_t>(row)];
        const std::uint32_t* pixels =
            stamp.pixels.data() + static_cast<std::ptrdiff_t>(row) * stamp.size;
        std::uint32_t* target = line(y + row) + x;
        const int end = std::min(span.second, deviceWidth_ - x);
        for (int column = std::max(span.first, -x); column < end; ++column) {
            const std::uint32_t pixel = pixels[column];
            if (pixel >= 0xff000000U)
                target[column] = pixel;
            else if (pixel != 0)
                target[column] = over(target[column], pixel);
        }
    }
}

void Picture::noteHead(int x, int y, Colour colour) {
    fillStyle = FillStyle::solid;
    fillColor = colour;
    circle(x + 5, y + 5, 5, black);
    circle(x + 3, y + 3, 1, white);
}

Colour Picture::pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_)
        return ground_;
    const auto middle = [this](int logical, int limit) {
        const long long first = toDevice(logical);
        const long long last = std::max(first, toDevice(logical + 1LL) - 1);
        return static_cast<int>(std::min<long long>((first + last) / 2, limit - 1));
    };
    if (image_.isNull())
        return ground_; // all ground, or smaller than a device pixel
    return toColour(line(middle(y, deviceHeight_))[middle(x, deviceWidth_)]);
}

} // namespace velorin
