// Commands on controls: set, get, focus, key, move.
#include "ButtonFaces.h"
#include "Commands.h"
#include "ControlNames.h"
#include "ControlValues.h"
#include "HiddenPictures.h"
#include "MenuEntries.h"
#include "Runner.h"

#include "program/Program.h"
#include "windows/main/Form1.h"

#include <QKeySequence>

#include <array>

namespace transcript {

namespace {

Lines set(Runner& runner, const Words& words) {
    expectWords(words, 2);
    setValue(controlOf(runner, words[0]), runner.path(words[1]));
    return {};
}

Lines focusNow(Runner& runner) {
    const QWidget* control = runner.program().windows.focus.current();
    return {control == nullptr ? "none" : nameOf(*control)};
}

Lines get(Runner& runner, const Words& words) {
    expectWords(words, 1);
    if (words[0] == "focus")
        return focusNow(runner);
    const Address address = parseAddress(words[0]);
    const bool asksWindow = address.control.empty();
    if (asksWindow && (address.property == "open" || address.property == "visible")) {
        if (!isWindowName(address.window))
            throw CommandError("no such window: " + words[0]);
        if (isMenuOwner(address))
            return {address.property == "open" && isMenuLoaded(runner) ? "1" : "0"};
        const QWidget* window = loadedWindow(runner, address.window);
        const bool holds = window != nullptr && (address.property == "open" || window->isVisible());
        return {holds ? "1" : "0"};
    }
    if (isMenuOwner(address) && !asksWindow)
        return menuEntry(runner, address);
    if (const auto hidden = hiddenPictureProperty(runner, address))
        return *hidden;
    QWidget& control = controlOf(runner, address);
    if (const auto face = faceProperty(runner, address, control))
        return *face;
    return address.property.empty() ? valueOf(control)
                                    : propertyOf(runner, control, address.property);
}

Lines focus(Runner& runner, const Words& words) {
    expectWords(words, 1);
    runner.program().windows.focus.give(&controlOf(runner, words[0]));
    return {};
}

/// Sends a key press and release like the window system: to shortcuts first, then to the control.
Lines key(Runner& runner, const Words& words) {
    expectWords(words, 2);
    QString name = QString::fromStdString(words[1]);
    name.replace(QLatin1String("Escape"), QLatin1String("Esc"));
    const QKeySequence keys(name, QKeySequence::PortableText);
    if (keys.count() != 1 || keys[0].key() == Qt::Key_unknown)
        throw CommandError("no such key: " + words[1]);
    QWidget& control = controlOf(runner, words[0]);
    runner.program().windows.focus.give(&control);
    // A control that was disabled meanwhile still has the focus, but gets no keys.
    control.setFocus(Qt::OtherFocusReason);
    pressKey(control, keys[0]);
    return {};
}

Lines move(Runner& runner, const Words& words) {
    expectWords(words, 3);
    if (!isWindowName(words[0]))
        throw CommandError("no such window: " + words[0]);
    const int width = numberBetween(words[1], 1, 100'000);
    const int height = numberBetween(words[2], 1, 100'000);
    windowOf(runner, words[0]).resize(width, height);
    return {};
}

} // namespace

std::span<const Command> controlCommands() {
    static constexpr std::array commands{
        Command{"set", set}, Command{"get", get},   Command{"focus", focus},
        Command{"key", key}, Command{"move", move},
    };
    return commands;
}

} // namespace transcript
