// Where a window stands, in twips: the value that was set is kept as long as the window stays
// there.
#pragma once

#include "shell/ScreenReach.h"

#include <QPoint>
#include <QSize>

class QWidget;

namespace velorin {

constexpr float largestTwips = 500'000.0F; ///< no desktop is wider

/// Whether some desktop may have such a place, in twips. What has not is damage in the settings.
[[nodiscard]] bool isPlaceOfADesktop(float left, float top);

/// Left, top, width and height in twips, single precision. A value that is no whole number of
/// pixels is rounded for the screen and kept as it is for the reader, so that a place that is saved
/// and restored does not creep.
class WindowPlace {
public:
    explicit WindowPlace(QWidget& window) : window_(window) {}

    [[nodiscard]] float Left() const;
    [[nodiscard]] float Top() const;
    [[nodiscard]] float Width() const;
    [[nodiscard]] float Height() const;

    void moveTo(float left, float top);
    void resizeTo(float width, float height);

    /// Moves the window into the nearest screen if the user cannot take hold of `title`, a
    /// rectangle of the window. A maximised one stays: it goes with its screen.
    void comeIntoReach(const QRect& title, const Screens& screens);

private:
    /// Whether what was set is told while the window stands there.
    [[nodiscard]] bool keepsValues() const;

    QWidget& window_;
    float left_ = 0.0F;
    float top_ = 0.0F;
    float width_ = 0.0F;
    float height_ = 0.0F;
    QPoint placedAt_;
    QSize placedSize_;
};

} // namespace velorin
