// Buttons that have a picture of their own under them: one control of the program serves both, and
// a transcript tells them apart by name.
#pragma once

#include "ControlNames.h"

#include <optional>

namespace transcript {

/// What a property of `Cmd2` or `ImgPic` is by the rule of the faces; empty where it is the
/// control's own.
[[nodiscard]] std::optional<Lines> faceProperty(Session& session, const Address& address,
                                                QWidget& control);

/// Which of the two the pointer is on is a matter of which shows. If `target` shows its picture,
/// the picture takes a press ("down"), a move or a release ("up"), and the answer is true.
[[nodiscard]] bool pictureTakesMouse(QWidget& target, const std::string& action);

} // namespace transcript
