// The place and size of a window in twips. A value that was set is kept while the window stays
// there.
#pragma once

#include "windows/frame/ScreenReach.h"

#include <QPoint>
#include <QSize>

class QWidget;

namespace velorin {

constexpr float largestTwips = 500'000.0F; ///< no desktop is wider

/// False for a place in twips that no desktop can have: the settings are damaged.
[[nodiscard]] bool isPlaceOfADesktop(float left, float top);

/// Left, top, width and height in twips, single precision. The screen gets whole pixels.
///
/// Rule: a value that is no whole number of pixels is read back as it was set, so a place that is
/// saved and restored does not creep. Held by shell/default_places.
class WindowPlace {
public:
    explicit WindowPlace(QWidget& window) : window_(window) {}

    [[nodiscard]] float Left() const;
    [[nodiscard]] float Top() const;
    [[nodiscard]] float Width() const;
    [[nodiscard]] float Height() const;

    void moveTo(float left, float top);
    void resizeTo(float width, float height);

    /// Moves the window into the nearest screen if the user cannot reach `title`, a rectangle of
    /// the window. A maximised window stays: it moves with its screen.
    void comeIntoReach(const QRect& title, const Screens& screens);

private:
    /// True if the values that were set are returned while the window is there.
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
