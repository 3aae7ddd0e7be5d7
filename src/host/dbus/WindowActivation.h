// Gives a window the keyboard on request of the desktop.
#pragma once

#include <string>

class QWidget;

namespace velorin::host {

/// Window systems give the keyboard only to a window that the user has asked for. `token` is their
/// evidence: an activation token of Wayland, or a startup id of X11, which has the time of the
/// click. With an empty or unknown one the window system decides. `window` is visible.
/// User-interface thread only.
void activateWindow(QWidget& window, const std::string& token);

} // namespace velorin::host
