// Finds the fonts of the system while the start does other things.
#pragma once

#include <future>
#include <thread>

namespace velorin {

/// Lets a thread read the settings of the font library, which takes as long as making the
/// application object. Needs no such object. Without a thread, they are read when somebody waits.
[[nodiscard]] std::future<void> readFontSettings();

/// The first text that is measured or painted needs the list of all fonts. A thread makes it, and
/// the first text waits for it if it is not ready. Needs the application object, and must end
/// before it.
class FontLoading {
public:
    explicit FontLoading(std::future<void> settings);
    ~FontLoading(); ///< waits for the list
    FontLoading(const FontLoading&) = delete;
    FontLoading& operator=(const FontLoading&) = delete;

private:
    std::thread thread_;
};

} // namespace velorin
