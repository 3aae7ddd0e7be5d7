// The off-screen pictures of the work area: they have names and pixels, but no widget.
#pragma once

#include "Answers.h"
#include "ControlNames.h"

#include <optional>
#include <string>

namespace velorin {
class Picture;
} // namespace velorin

namespace transcript {

class Session;

/// Null if the program does not run, or if the name is that of no off-screen picture.
[[nodiscard]] const velorin::Picture* hiddenPicture(Session& session, const std::string& name);

/// `rect` and `visible` of such a picture; nothing of any other control or property.
[[nodiscard]] std::optional<Lines> hiddenPictureProperty(Session& session, const Address& address);

} // namespace transcript
