// What a reader of the screen is told of controls that the toolkit does not know by itself.
#pragma once

#include "controls/ControlTable.h"

class QWidget;

namespace velorin {

/// From now on a reader takes the control for one of that kind. What a reader presses is pressed
/// as by the space bar, once the reader has got its answer, whichever window is active.
void showToReaders(QWidget& control, ControlKind kind);

/// A button that shows by its picture whether something is on.
void tellReadersChecked(QWidget& control, bool checked);

/// How far a bar of progress is, [0, 100] percent.
void tellReadersProgress(QWidget& control, int percent);

/// A window with news has come up.
void tellReadersNews(QWidget& window);

} // namespace velorin
