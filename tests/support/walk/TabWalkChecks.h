// What every window must give a user without a mouse.
#pragma once

#include "support/walk/TabWalk.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QWidget>

#include <algorithm>
#include <string>
#include <vector>

namespace velorin {

/// The least number of pixels in a ring: three quarters of the edge of the smallest control.
constexpr int leastRingPixels = 60;

/// Tab comes round and reaches every control for the mouse, itself or with the arrow keys of its
/// group, but those in `others`, which have another way. Each stop is seen, has a ring, and comes
/// in reading order, the buttons of the title last. Shift+Tab goes the same way back.
inline void expectWalk(QWidget& window, const std::vector<std::string>& others = {}) {
    const TabWalk walk = walkByTab(window);
    EXPECT_TRUE(walk.comesRound);
    ASSERT_FALSE(walk.stops.empty());
    const QWidget* before = nullptr;
    for (const auto& [control, ringPixels] : walk.stops) {
        const std::string name = nameOf(*control);
        EXPECT_GE(ringPixels, leastRingPixels) << "the ring of " << name;
        EXPECT_FALSE(control->visibleRegion().isEmpty()) << name << " is hidden";
        const bool isOfTitle = name.starts_with("imgTitle");
        EXPECT_TRUE(before == nullptr || isOfTitle || isReadingOrder(*before, *control))
            << name << " comes too late";
        before = control;
    }
    TabWalk back = walkByTab(window, Direction::back);
    EXPECT_TRUE(back.comesRound);
    std::ranges::reverse(back.stops);
    EXPECT_EQ(back.names(), walk.names());

    std::vector<std::string> reached = walk.names();
    for (const TabStop& stop : walk.stops) {
        const auto* const button = qobject_cast<const QAbstractButton*>(stop.control);
        if (button != nullptr && button->autoExclusive() && button->isCheckable()) {
            stop.control->setFocus();
            for (const QWidget* const option : reachedByArrows(*stop.control))
                reached.push_back(nameOf(*option));
        }
    }
    reached.insert(reached.end(), others.begin(), others.end());
    for (const QWidget* const control : controlsForTheMouse(window))
        EXPECT_THAT(reached, testing::Contains(nameOf(*control)));
}

} // namespace velorin
