// The interface through which the tableaux use the main window: its size, its toolbar, its popup
// menus.
#pragma once

namespace velorin {

/// Implemented by `Form1`. Sizes in logical pixels.
class TableauDesk {
public:
    virtual ~TableauDesk() = default;

    [[nodiscard]] virtual bool isMinimised() = 0;
    [[nodiscard]] virtual int innerWidth() = 0;
    [[nodiscard]] virtual int innerHeight() = 0;

    /// `toolbMenu`; its height stays.
    virtual void placeToolbMenu(int left, int top, int widthPx) = 0;
    [[nodiscard]] virtual int toolbMenuHeight() = 0;
    /// `Picture2`, the word mark.
    virtual void setPicture2Left(int left) = 0;
    [[nodiscard]] virtual int picture2Width() = 0;

    /// Loads `Frmmenu`, shows the popup of its `Command1` (the program) or `Command2` (the
    /// editing), and unloads it.
    virtual void popupCommand1() = 0;
    virtual void popupCommand2() = 0;
};

} // namespace velorin
