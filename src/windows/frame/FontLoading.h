// Finds the fonts of the system while the start does other things.
#pragma once

#include <thread>

namespace velorin {

/// The first text that is measured or painted needs the list of all fonts, which takes the font
/// library some milliseconds. A thread makes the list, and the first text waits for it if it is not
/// ready. Needs the application object, and must end before it.
class FontLoading {
public:
    FontLoading();
    ~FontLoading(); ///< waits for the list
    FontLoading(const FontLoading&) = delete;
    FontLoading& operator=(const FontLoading&) = delete;

private:
    std::thread thread_;
};

} // namespace velorin
