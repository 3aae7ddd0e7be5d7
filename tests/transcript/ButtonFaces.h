// Buttons with a separate picture. One widget is both, and a transcript tells them apart by name.
#pragma once

#include "ControlNames.h"

#include <optional>

namespace transcript {

/// A property of `Cmd2` or `ImgPic` that depends on which of the two shows; empty for the widget's
/// own property.
[[nodiscard]] std::optional<Lines> faceProperty(Runner& runner, const Address& address,
                                                QWidget& control);

/// If `target` shows its picture, the picture takes a press ("down"), a move or a release ("up"),
/// and the result is true.
[[nodiscard]] bool pictureTakesMouse(QWidget& target, const std::string& action);

} // namespace transcript
