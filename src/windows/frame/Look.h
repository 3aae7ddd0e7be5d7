// The look of the program: style, palette, style sheet and pictures.
#pragma once

class QApplication;

namespace velorin {

/// Call once, before the first window is created. Pictures are then available under ":/look". The
/// look is the same on every desktop, light or dark.
void applyLook(QApplication& application);

} // namespace velorin
