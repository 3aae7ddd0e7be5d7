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
    /// True if a window that the user has not placed yet opens beside the others, where there is
    /// room. False where nobody sees the windows.
    [[nodiscard]] virtual bool standsWindowsApart() { return false; }
    [[nodiscard]] virtual PointPx GetCursorPos() = 0; ///< on the screen

    /// True if another copy of the program is running for this user. If false, this one holds the
    /// lock from now on. Waits some seconds for a copy that has announced its end.
    [[nodiscard]] virtual bool isAnotherCopyRunning() = 0;

    /// Announces that this copy is about to end: a copy that starts from now on waits for it and
    /// does not tell the user that it is running.
    virtual void announceEnd() = 0;

    /// Opens the help at its first page. `file` is the name that the program has for it.
    virtual void HtmlHelpA(const std::string& file) = 0;

    /// Starts another program, with its window shown normally. Returns whether it could be started.
    /// A name that ends in "SndVol32.exe" means the host's volume control.
    virtual bool startProgram(const std::string& path) = 0;

    /// Opens a file with the program that the desktop has for it. Returns whether it was tried.
    virtual bool openFile(const std::string& path) = 0;

    /// Shows a file in the desktop's file manager, or else its folder.
    virtual void showInFolder(const std::string& path) = 0;

    /// A random number in [0, 1).
    [[nodiscard]] virtual double Rnd() = 0;
};

} // namespace platform
