// The look of the program: its style, its palette, its style sheet and its pictures.
#pragma once

class QApplication;

namespace velorin {

/// Once, before the first window is made. Pictures are found under ":/look" from then on. The same
/// on every desktop, light or dark.
void applyLook(QApplication& application);

} // namespace velorin
