// A drawing surface with a fill state: the few picture operations that the tableaux are drawn with.
#pragma once

#include "drawing/Stamp.h"
#include "model/RowColors.h"

#include <QImage>
#include <QRect>

#include <functional>
#include <utility>

namespace velorin {

/// Coordinates are logical pixels of the surface. A box includes both its corners, which may be
/// given in any order. Everything outside the surface is clipped, however far. On a surface of size
/// 0 every operation does nothing. Needs no application object, except for text on `canvas`.
///
/// A surface that is all ground has no pixels in memory: they are made by the first operation that
/// draws, or by the first look at the whole image. For one thread at a time, also to read.
class Picture {
public:
    explicit Picture(Colour ground, FillStyle style = FillStyle::transparent, Colour fill = 0);

    /// Sets the size and clears the surface; does nothing if the size is the same. `ratio` is
    /// device pixels per logical pixel, above 0. A negative size counts as 0.
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
    /// 0.5). Radius [0, 64]; any other draws nothing.
    void circle(int x, int y, int radius, Colour colour);
    /// Draws the head of a note in the cell whose corner is (x, y): the disc with its black outline
    /// and the white highlight. Leaves the fill state solid in `colour`.
    void noteHead(int x, int y, Colour colour);

    /// Copies a rectangle of `source` (raster operation SRCCOPY). Source and target may be one
    /// surface. A strip that is copied away and back is restored exactly, device pixel by device
    /// pixel.
    void BitBlt(int x, int y, int widthPx, int heightPx, const Picture& source, int sourceX,
                int sourceY);
    /// Blends `source`, which is of one colour, over a rectangle with the constant `alpha` [0,
    /// 255]: each channel becomes (source * alpha + target * (255 - alpha)) / 255, rounded to
    /// nearest. Nothing happens while either picture has no size.
    void AlphaBlend(int x, int y, int widthPx, int heightPx, const Picture& source, int alpha);

    /// The pixels, at device resolution.
    [[nodiscard]] const QImage& image() const;
    /// The pixels, for painting by other means. The whole surface then counts as touched.
    QImage& canvas();
    [[nodiscard]] Colour pixel(int x, int y) const; ///< logical place; the ground outside

    /// Called when the touched area grows, with the logical rectangle of everything touched since
    /// `clearTouched`. So a redraw that begins with `Cls` calls it once.
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
    /// The first pixel of a line. Lines are contiguous in memory.
    [[nodiscard]] std::uint32_t* line(int deviceY) {
        return pixels_ + static_cast<std::ptrdiff_t>(deviceY) * deviceWidth_;
    }
    [[nodiscard]] const std::uint32_t* line(int deviceY) const {
        return reinterpret_cast<const std::uint32_t*>(image_.constScanLine(deviceY));
    }
    [[nodiscard]] bool hasSize() const { return deviceWidth_ > 0 && deviceHeight_ > 0; }
    void makePixels() const;
    void fill(const DeviceBox& box, Colour colour);
    void fillByState(int x1, int y1, int x2, int y2);
    void touch(long long x1, long long y1, long long x2, long long y2);
    void markTouched(long long x1, long long y1, long long x2, long long y2);
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
    mutable QImage image_; ///< null while all is ground
    int deviceWidth_ = 0;
    int deviceHeight_ = 0;
    std::uint32_t* pixels_ = nullptr; ///< of `image_`, valid after `touch`
    QRect touched_;
    StampCase stamps_;
};

} // namespace velorin
