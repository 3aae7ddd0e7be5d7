// The properties of popup menu entries, which are not widgets.
#pragma once

#include "ControlNames.h"

namespace transcript {

[[nodiscard]] inline bool isMenuOwner(const Address& address) {
    return address.window == "Frmmenu";
}

/// True between the load of the menus' owner and its unload after a popup.
[[nodiscard]] bool isMenuLoaded(Runner& runner);

/// A property of an entry; its caption by default. Loads the menus' owner.
[[nodiscard]] Lines menuEntry(Runner& runner, const Address& address);

} // namespace transcript
