// The keys that every window of the program has: on to the next window, and Enter on a button.
#pragma once

class QKeyEvent;
class QWidget;

namespace velorin {

/// Gives a window the keys that go to the next window and to the one before.
void addWindowKeys(QWidget& window);

/// Enter presses the button of `window` that has the focus. False if the key is another one, or no
/// button has the focus.
bool pressButtonByEnter(QWidget& window, const QKeyEvent& event);

} // namespace velorin
