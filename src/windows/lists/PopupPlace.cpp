// Where an open list goes on the screen, and how many rows it shows.
#include "windows/lists/PopupPlace.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr int gap = 1; ///< between field and list
constexpr int fewRows = 16;
constexpr int usualRows = 18;
constexpr int manyRows = 20;
constexpr int lowScreen = 768;
constexpr int highScreen = 1200;

int rowsOn(QRect screen) {
    if (screen.height() <= lowScreen)
        return fewRows;
    return screen.height() >= highScreen ? manyRows : usualRows;
}

} // namespace

PopupPlace placeOfPopup(QRect field, QRect screen, int width, int edges, int rowHeight) {
    const int below = (screen.bottom() - (field.bottom() + gap) - edges) / rowHeight;
    const int above = (field.top() - gap - screen.top() - edges) / rowHeight;
    const int wanted = rowsOn(screen);
    const bool isAbove = below < wanted && above > below;
    const int rows = std::clamp(isAbove ? above : below, 1, wanted);
    const int height = edges + rows * rowHeight;
    const int top = isAbove ? field.top() - gap - height : field.bottom() + 1 + gap;
    const int left = std::max(std::min(field.left(), screen.right() + 1 - width), screen.left());
    return {QRect(left, top, width, height), rows};
}

} // namespace velorin
