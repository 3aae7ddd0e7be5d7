// A drawing surface with a fill state: copies between surfaces, and blending.
#include "drawing/Picture.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace velorin {

namespace {

/// Blends one channel. `weighted` is source * alpha + 127; 127 is half of 255 and makes the
/// division round.
///
/// The sum is at most 255 * 255 + 127 and fits 16 bits. For every such t, (t + 1 + t / 256) / 256
/// is t / 255, which avoids the division.
std::uint8_t blend(std::uint8_t target, std::uint16_t weighted, std::uint16_t rest) {
    const auto sum = static_cast<std::uint16_t>(target * rest + weighted);
    return static_cast<std::uint8_t>((sum + 1 + (sum >> 8)) >> 8);
}

/// Four pixels at a time, byte by byte, so that the compiler uses vector instructions.
void blendLine(std::uint32_t* target, int count, std::uint32_t source, std::uint32_t alpha) {
    constexpr int group = 16;
    const auto rest = static_cast<std::uint16_t>(255 - alpha);
    std::array<std::uint16_t, group> weighted{};
    std::array<std::uint8_t, 4> channels{};
    std::memcpy(channels.data(), &source, sizeof source);
    for (std::size_t i = 0; i < group; ++i)
        weighted[i] = static_cast<std::uint16_t>(channels[i % 4] * alpha + 127);

    auto* bytes = reinterpret_cast<std::uint8_t*>(target);
    int left = count * 4;
    for (; left >= group; left -= group, bytes += group)
        for (std::size_t i = 0; i < group; ++i)
            bytes[i] = blend(bytes[i], weighted[i], rest);
    for (std::size_t i = 0; i < static_cast<std::size_t>(left); ++i)
        bytes[i] = blend(bytes[i], weighted[i], rest);
}

/// Clips a run of `length` pixels to both surfaces.
void clipRun(long long& target, long long& source, long long& length, int targetLimit,
             int sourceLimit) {
    const long long before = std::max({0LL, -target, -source});
    target += before;
    source += before;
    length -= before;
    length = std::min({length, targetLimit - target, sourceLimit - source});
}

} // namespace

void Picture::BitBlt(int x, int y, int widthPx, int heightPx, const Picture& source, int sourceX,
                     int sourceY) {
    if (widthPx <= 0 || heightPx <= 0 || !hasSize() || source.image().isNull())
        return;
    touch(x, y, x + static_cast<long long>(widthPx), y + static_cast<long long>(heightPx));
    if (ratio_ == source.ratio_)
        copySameScale(x, y, widthPx, heightPx, source, sourceX, sourceY);
    else
        copyOtherScale(x, y, widthPx, heightPx, source, sourceX, sourceY);
}

/// The number of device pixels depends on the logical size only, not on the place. At a fractional
/// ratio it may be one more than the place has, but a strip is restored exactly.
void Picture::copySameScale(int x, int y, int widthPx, int heightPx, const Picture& source,
                            int sourceX, int sourceY) {
    long long left = toDevice(x);
    long long top = toDevice(y);
    long long fromLeft = toDevice(sourceX);
    long long fromTop = toDevice(sourceY);
    long long width = toDeviceLength(widthPx);
    long long height = toDeviceLength(heightPx);
    clipRun(left, fromLeft, width, deviceWidth_, source.deviceWidth_);
    clipRun(top, fromTop, height, deviceHeight_, source.deviceHeight_);
    if (width <= 0 || height <= 0)
        return;
    // Within one surface the order makes sure that no line is overwritten before it is read.
    const bool upwards = fromTop < top;
    for (long long i = 0; i < height; ++i) {
        const int row = static_cast<int>(upwards ? height - 1 - i : i);
        std::memmove(line(static_cast<int>(top) + row) + left,
                     source.line(static_cast<int>(fromTop) + row) + fromLeft,
                     static_cast<std::size_t>(width) * sizeof(std::uint32_t));
    }
}

/// Copies between surfaces of different scale: takes the nearest pixel. Needed for a moment after
/// the window has moved to another screen.
void Picture::copyOtherScale(int x, int y, int widthPx, int heightPx, const Picture& source,
                             int sourceX, int sourceY) {
    const DeviceBox box = deviceBox(x, y, static_cast<int>(std::min(x + widthPx - 1LL, 0x7fffLL)),
                                    static_cast<int>(std::min(y + heightPx - 1LL, 0x7fffLL)));
    for (int row = box.top; row < box.bottom; ++row) {
        const long long fromY = toLogical(row) - y + sourceY;
        for (int column = box.left; column < box.right; ++column) {
            const long long fromX = toLogical(column) - x + sourceX;
            if (fromX >= 0 && fromY >= 0 && fromX < source.width_ && fromY < source.height_)
                line(row)[column] =
                    toPixel(source.pixel(static_cast<int>(fromX), static_cast<int>(fromY)));
        }
    }
}

void Picture::AlphaBlend(int x, int y, int widthPx, int heightPx, const Picture& source,
                         int alpha) {
    if (widthPx <= 0 || heightPx <= 0 || !hasSize() || !source.hasSize())
        return;
    const long long right = x + widthPx - 1LL;
    const long long bottom = y + heightPx - 1LL;
    touch(x, y, right, bottom);
    const auto weight = static_cast<std::uint32_t>(std::clamp(alpha, 0, 255));
    const DeviceBox box = deviceBox(x, y, static_cast<int>(std::min(right, 0x7fffLL)),
                                    static_cast<int>(std::min(bottom, 0x7fffLL)));
    for (int row = box.top; row < box.bottom; ++row)
        blendLine(line(row) + box.left, box.right - box.left, toPixel(source.ground_), weight);
}

} // namespace velorin
