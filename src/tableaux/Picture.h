// A drawing surface with a fill state: the few picture operations that the tableaux are drawn with.
#pragma once

#include "score/RowColors.h"

#include <QImage>
#include <QString>

namespace velorin {

/// How closed shapes are filled; the numbers are the program's own.
enum class FillStyle { solid = 0, transparent = 1, horizontalLines = 2, diagonalCross = 7 };

/// Coordinates are logical pixels of the surface; both corners of a box belong to it. What lies
/// outside the surface is clipped. A surface of no size takes every operation and does nothing.
class Picture {
public:
    explicit Picture(Colour ground, FillStyle style = FillStyle::transparent, Colour fill = 0);

    /// Gives the surface another size, all ground. `ratio` is device pixels to a logical pixel.
    void resize(int widthPx, int heightPx, double ratio = 1.0);
    [[nodiscard]] int ScaleWidth() const { return width_; }
    [[nodiscard]] int ScaleHeight() const { return height_; }

    FillStyle fillStyle;
    Colour fillColor;

    void Cls();
    void fillBox(int x1, int y1, int x2, int y2, Colour colour);
    /// The edge in `colour`, the interior by the fill state.
    void outlineBox(int x1, int y1, int x2, int y2, Colour colour);
    void verticalLine(int x, int y1, int y2, Colour colour);
    void horizontalLine(int x1, int x2, int y, Colour colour);
    /// The outline in `colour`, the interior by the fill state; antialiased around (x + 0.5, y +
    /// 0.5).
    void circle(int x, int y, int radius, Colour colour);

    /// Copies a rectangle of `source` (raster operation SRCCOPY). Source and target may be one
    /// surface.
    void BitBlt(int x, int y, int widthPx, int heightPx, const Picture& source, int sourceX,
                int sourceY);
    /// Blends a plain colour over a rectangle with a constant alpha of 255.
    void AlphaBlend(int x, int y, int widthPx, int heightPx, const Picture& source, int alpha);

    /// The pixels, at device resolution.
    [[nodiscard]] const QImage& image() const { return image_; }
    [[nodiscard]] Colour pixel(int x, int y) const; ///< logical; the ground outside

private:
    Colour ground_;
    int width_ = 0;
    int height_ = 0;
    QImage image_;
};

} // namespace velorin
