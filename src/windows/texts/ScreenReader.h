// Describes to screen readers the controls that Qt does not know.
#pragma once

#include "windows/texts/ControlTable.h"

#include <QString>

class QWidget;

namespace velorin {

/// Announces the control as one of that kind from now on. When a screen reader presses it, the
/// control gets the space key after the reader has its answer, whichever window is active.
void showToReaders(QWidget& control, ControlKind kind);

/// The state of a `ControlKind::toggle`.
void announceChecked(QWidget& control, bool checked);

/// The value of a progress bar, [0, 100] percent.
void announceProgress(QWidget& control, int percent);

/// The words of a `ControlKind::status`. A reader that asks gets them; only `isNews` reports them.
void describeStatus(QWidget& line, const QString& words, bool isNews);

/// Reports words once, politely: without interrupting what is read. For three seconds, or until the
/// next news, a reader that asks gets these words in place of the others.
void announceStatus(QWidget& line, const QString& words);

/// A window with news was shown.
void announceAlert(QWidget& window);

} // namespace velorin
