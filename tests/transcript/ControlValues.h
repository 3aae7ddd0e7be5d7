// The values and properties of controls, and how a user sets them.
#pragma once

#include "Words.h"

#include <QKeyCombination>
#include <QWidget>

namespace transcript {

class Runner;

/// The value in the form that `setValue` takes; for a label or button its caption.
[[nodiscard]] Lines valueOf(QWidget& control);

/// The text of a label or button, or the title of a window.
[[nodiscard]] Lines captionOf(QWidget& control);

/// Sets the value as a user would. Does nothing if the control is disabled or has this value
/// already.
void setValue(QWidget& control, const std::string& word);

[[nodiscard]] Lines propertyOf(Runner& runner, QWidget& control, const std::string& name);

/// Sends a key press and release; shortcuts of the window work.
void pressKey(QWidget& control, QKeyCombination key);

} // namespace transcript
