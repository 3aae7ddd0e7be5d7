// Commands on controls: set, get, focus, key, move.
#include "ButtonFaces.h"
#include "Commands.h"
#include "ControlNames.h"
#include "ControlValues.h"
#include "HiddenPictures.h"
#include "MenuEntries.h"
#include "Session.h"

#include "program/Form1.h"
#include "program/Program.h"

#include <QKeySequence>

#include <array>

namespace transcript {

namespace {

Lines set(Session& session, const Words& words) {
    expectWords(words, 2);
    setValue(controlOf(session, words[0]), session.path(words[1]));
    return {};
}

Lines focusNow(Session& session) {
    const QWidget* control = session.program().focus.current();
    return {control == nullptr ? "none" : nameOf(*control)};
}

Lines get(Session& session, const Words& words) {
    expectWords(words, 1);
    if (words[0] == "focus")
        return focusNow(session);
    const Address address = parseAddress(words[0]);
    const bool asksWindow = address.control.empty();
    if (asksWindow && (address.property == "open" || address.property == "visible")) {
        if (!isWindowName(address.window))
            throw CommandError("no such window: " + words[0]);
        if (isMenuOwner(address))
            return {address.property == "open" && isMenuLoaded(session) ? "1" : "0"};
        const QWidget* window = loadedWindow(session, address.window);
        const bool holds = window != nullptr && (address.property == "open" || window->isVisible());
        return {holds ? "1" : "0"};
    }
    if (isMenuOwner(address) && !asksWindow)
        return menuEntry(session, address);
    if (const auto hidden = hiddenPictureProperty(session, address))
        return *hidden;
    QWidget& control = controlOf(session, address);
    if (const auto face = faceProperty(session, address, control))
        return *face;
    return address.property.empty() ? valueOf(control)
                                    : propertyOf(session, control, address.property);
}

Lines focus(Session& session, const Words& words) {
    expectWords(words, 1);
    session.program().focus.give(&controlOf(session, words[0]));
    return {};
}

/// A key press with its release, as the window system sends it: shortcuts first, then the control.
Lines key(Session& session, const Words& words) {
    expectWords(words, 2);
    QString name = QString::fromStdString(words[1]);
    name.replace(QLatin1String("Escape"), QLatin1String("Esc"));
    const QKeySequence keys(name, QKeySequence::PortableText);
    if (keys.count() != 1 || keys[0].key() == Qt::Key_unknown)
        throw CommandError("no such key: " + words[1]);
    QWidget& control = controlOf(session, words[0]);
    session.program().focus.give(&control);
    // One that was disabled meanwhile has lost the keyboard to another, not the focus.
    control.setFocus(Qt::OtherFocusReason);
    pressKey(control, keys[0]);
    return {};
}

Lines move(Session& session, const Words& words) {
    expectWords(words, 3);
    if (!isWindowName(words[0]))
        throw CommandError("no such window: " + words[0]);
    const int width = numberBetween(words[1], 1, 100'000);
    const int height = numberBetween(words[2], 1, 100'000);
    windowOf(session, words[0]).resize(width, height);
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
