// A drawing surface with a fill state: the few picture operations that the tableaux are drawn with.
#pragma once

#include "score/RowColors.h"
#include "tableaux/Stamp.h"

#include <QImage>
#include <QRect>

#include <functional>
#include <utility>

namespace velorin {

/// Coordinates are logical pixels of the surface; both corners of a box belong to it, in whichever
/// order they are given. What lies outside the surface is clipped, however far. A surface of no
/// size takes every operation and does nothing. Needs no application object, but for text on
/// `canvas`.
class Picture {
public:
    explicit Picture(Colour ground, FillStyle style = FillStyle::transparent, Colour fill = 0);

    /// Gives the surface another size, all ground; the size that it has already changes nothing.
    /// `ratio` is device pixels to a logical pixel, above 0. A negative size counts as 0.
    void resize(int widthPx, int heightPx, double ratio = 1.0);
    [[nodiscard]] int ScaleWidth() const { return width_; }
    [[nodiscard]] int ScaleHeight() const { return height_; }
    [[nodiscard]] double ratio() const { return ratio_; }
    [[nodiscard]] Colour ground() const { return ground_; }

    FillStyle fillStyle;
    Colour fillColor;

    void Cls();
    void fillBox(int x1, int y1, int x2, int y2, Colour colour);
    /// The edge in `colour`, the interior by the fill state.
    void outlineBox(int x1, int y1, int x2, int y2, Colour colour);
    void verticalLine(int x, int y1, int y2, Colour colour);
    void horizontalLine(int x1, int x2, int y, Colour colour);
    /// The outline in `colour`, the interior by the fill state; antialiased around (x + 0.5, y +
    /// 0.5). Radius [0, 64]; another draws nothing.
    void circle(int x, int y, int radius, Colour colour);
    /// The head of a note in the cell whose corner is (x, y): leaves the fill state solid in
    /// `colour`, and draws the disc with its black outline and the white highlight.
    void noteHead(int x, int y, Colour colour);

    /// Copies a rectangle of `source` (raster operation SRCCOPY). Source and target may be one
    /// surface. A strip that is copied away and back is restored to the last device pixel.
    void BitBlt(int x, int y, int widthPx, int heightPx, const Picture& source, int sourceX,
                int sourceY);
    /// Blends the whole of `source`, stretched, over a rectangle with the constant `alpha` [0,
    /// 255]: each channel becomes (source * alpha + target * (255 - alpha)) / 255, rounded to
    /// nearest.
    void AlphaBlend(int x, int y, int widthPx, int heightPx, const Picture& source, int alpha);

    /// The pixels, at device resolution.
    [[nodiscard]] const QImage& image() const { return image_; }
    /// The pixels, to paint on by other means; counts as touched all over.
    QImage& canvas();
    [[nodiscard]] Colour pixel(int x, int y) const; ///< logical; the ground outside

    /// Called with the logical rectangle of everything touched since `clearTouched`, when it grows.
    /// So a redraw that begins with `Cls` calls it once.
    std::function<void(const QRect& touched)> onTouched;
    void clearTouched() { touched_ = QRect(); }

private:
    /// Device pixels [left, right) by [top, bottom).
    struct DeviceBox {
        int left, top, right, bottom;
        [[nodiscard]] bool empty() const { return left >= right || top >= bottom; }
    };

    [[nodiscard]] long long toDevice(long long logical) const;
    [[nodiscard]] long long toDeviceLength(int logical) const;
    [[nodiscard]] long long toLogical(long long device) const;
    [[nodiscard]] DeviceBox deviceBox(int x1, int y1, int x2, int y2) const;
    /// Lines of pixels have no gaps between them.
    [[nodiscard]] std::uint32_t* line(int deviceY) {
        return pixels_ + static_cast<std::ptrdiff_t>(deviceY) * deviceWidth_;
    }
    [[nodiscard]] const std::uint32_t* line(int deviceY) const {
        return reinterpret_cast<const std::uint32_t*>(image_.constScanLine(deviceY));
    }
    void fill(const DeviceBox& box, Colour colour);
    void fillByState(int x1, int y1, int x2, int y2);
    void touch(long long x1, long long y1, long long x2, long long y2);
    void copySameScale(int x, int y, int widthPx, int heightPx, const Picture& source, int sourceX,
                       int sourceY);
    void copyOtherScale(int x, int y, int widthPx, int heightPx, const Picture& source, int sourceX,
                        int sourceY);
    [[nodiscard]] std::pair<long long, int> circleCorner(long long logical) const;
    void stamp(const Stamp& stamp, long long left, long long top);

    Colour ground_;
    int width_ = 0;
    int height_ = 0;
    double ratio_ = 1.0;
    bool plain_ = true; ///< nothing but ground
    QImage image_;
    int deviceWidth_ = 0;
    int deviceHeight_ = 0;
    std::uint32_t* pixels_ = nullptr; ///< of `image_`, which is shared with nobody while drawn on
    QRect touched_;
    StampCase stamps_;
};

} // namespace velorin
