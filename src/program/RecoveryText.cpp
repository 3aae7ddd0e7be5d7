// The text of the notice.
#include "program/RecoveryText.h"

namespace velorin {

std::string recoveryText(const platform::RecoveredFile& recovered) {
    const std::string place =
        "in \"Songs\" as\r\n\"" + recovered.name + "\". Click here to open it.";
    if (recovered.endedCleanly)
        return "The score that was open when Velorin ended was not saved. It is " + place;
    return "Velorin did not end in order the last time. Nothing is lost: the score is " + place;
}

} // namespace velorin
