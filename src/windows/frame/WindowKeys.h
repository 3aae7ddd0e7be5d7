// The keys of every window of the program: to the next window, and Enter on a button.
#pragma once

class QKeyEvent;
class QWidget;

namespace velorin {

/// Gives a window the keys that go to the next window and to the one before.
void addWindowKeys(QWidget& window);

/// Presses the focused button of `window` if the key is Enter. False for another key, or if no
/// button has the focus.
bool pressButtonByEnter(QWidget& window, const QKeyEvent& event);

} // namespace velorin
