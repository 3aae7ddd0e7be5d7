// One drawing on a tableau, as it is made with the pen and repeated with the mouse.
#pragma once

#include "windows/pen/Place.h"

#include <array>
#include <string>
#include <vector>

namespace randomly {

/// A value that both users set in the same way before the drawing.
struct Setting {
    enum class Kind { mode, rightClick, row, drum, hidden, strip, lanes, size, count };
    Kind kind = Kind::mode;
    int value = 0;
};

struct Drawing {
    std::vector<Setting> settings;
    velorin::Tableau tableau = velorin::Tableau::music;
    int button = 1;
    bool isWhilePlaying = false;
    std::array<int, 2> scrolled{}; ///< columns and lines, from beyond the edges
    velorin::Place press;
    std::vector<velorin::Place> path; ///< of the held button, without the press

    [[nodiscard]] std::string text() const;
};

} // namespace randomly
