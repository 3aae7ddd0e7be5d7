// The off-screen pictures of the work area, which have names and pixels, but no widget.
#pragma once

#include "Answers.h"
#include "ControlNames.h"

#include <optional>
#include <string>

namespace velorin {
class Picture;
} // namespace velorin

namespace transcript {

class Runner;

/// Null if the program does not run, or if there is no off-screen picture of this name.
[[nodiscard]] const velorin::Picture* hiddenPicture(Runner& runner, const std::string& name);

/// `rect` and `visible` of such a picture; no value for other controls and properties.
[[nodiscard]] std::optional<Lines> hiddenPictureProperty(Runner& runner, const Address& address);

} // namespace transcript
