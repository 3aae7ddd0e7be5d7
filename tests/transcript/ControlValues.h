// What a control's value and properties are, and how a user sets them.
#pragma once

#include "Words.h"

#include <QKeyCombination>
#include <QWidget>

namespace transcript {

class Session;

/// The value in the form that `setValue` takes; of a label or button the caption.
[[nodiscard]] Lines valueOf(QWidget& control);

/// The text on a label or button, or a window's title.
[[nodiscard]] Lines captionOf(QWidget& control);

/// Sets it as a user would. Nothing happens to a disabled control, nor where the value is the
/// present one.
void setValue(QWidget& control, const std::string& word);

[[nodiscard]] Lines propertyOf(Session& session, QWidget& control, const std::string& name);

/// A key press and release, shortcuts of the window included.
void pressKey(QWidget& control, QKeyCombination key);

} // namespace transcript
