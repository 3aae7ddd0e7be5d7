// What the tableaux ask of the main window around them: its size, its strip of buttons, its popup
// menus.
#pragma once

#include <string>

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

    /// The main window's own hidden instrument lists, filled like those of `Form3`: "24 Nylon
    /// Guitar", "128 Acoustic Bass Drum". An index [0, 128) and [0, 47); empty outside.
    [[nodiscard]] virtual std::string Combo1Entry(int index) = 0;
    [[nodiscard]] virtual std::string Combo5Entry(int index) = 0;
};

} // namespace velorin
