// Messages to the user about a save that failed.
#pragma once

#include "platform/WriteError.h"

#include <string>

namespace velorin {

/// What happened and what to do: "\"harbour.sng\" was not saved: the disk is full. Make room and
/// save again." `name` is the file's whole name; `error` is not `none`.
[[nodiscard]] std::string saveFailureText(const std::string& name, platform::WriteError error);

} // namespace velorin
