// The desktop around the program: the screen, the pointer, other copies, and programs started
// outside.
#pragma once

#include <string>
#include <vector>

namespace platform {

struct PointPx {
    int x = 0;
    int y = 0;
};

struct SizePx {
    int width = 0;
    int height = 0;
};

struct RectPx {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// One of the screens that make up the desktop, in the desktop's coordinates.
struct Screen {
    RectPx whole;
    RectPx free; ///< what panels and docks leave; not empty
};

/// Window positions are kept in twips: 1440 to the inch, 15 to a pixel at 96 dots to the inch.
constexpr int twipsPerPixel = 15;

class Desktop {
public:
    virtual ~Desktop() = default;

    [[nodiscard]] virtual SizePx screenSize() = 0; ///< of the first screen
    /// All screens that are there now, the first one first; never empty.
    [[nodiscard]] virtual std::vector<Screen> screens() {
        const SizePx size = screenSize();
        const RectPx only{0, 0, size.width, size.height};
        return {{only, only}};
    }
    /// Whether a window that nobody has placed yet is to look for room beside the others, as on a
    /// desktop where somebody sees them.
    [[nodiscard]] virtual bool standsWindowsApart() { return false; }
    [[nodiscard]] virtual PointPx GetCursorPos() = 0; ///< on the screen

    /// Whether another copy of the program runs for this user; holds the place of the one copy if
    /// not. Waits some seconds for a copy that has announced its end.
    [[nodiscard]] virtual bool isAnotherCopyRunning() = 0;

    /// This copy is about to end: one that starts from now on need not tell the user that this one
    /// is running.
    virtual void announceEnd() = 0;

    /// Opens the help at its first page; `file` is the help's name as the program has it.
    virtual void HtmlHelpA(const std::string& file) = 0;

    /// Starts a program outside, with its window shown normally. Returns whether it could be
    /// started. A name that ends in "SndVol32.exe" stands for the host's volume control.
    virtual bool startProgram(const std::string& path) = 0;

    /// A random number in [0, 1).
    [[nodiscard]] virtual double Rnd() = 0;
};

} // namespace platform
