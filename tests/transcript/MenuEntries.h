// What `get` prints of the entries of the popup menus, which are no controls of a window system.
#pragma once

#include "ControlNames.h"

namespace transcript {

[[nodiscard]] inline bool isMenuOwner(const Address& address) {
    return address.window == "Frmmenu";
}

/// True between the load of the menus' owner and its unload behind a popup.
[[nodiscard]] bool isMenuLoaded(Session& session);

/// A property of an entry, or its caption where none is named. Loads the menus' owner.
[[nodiscard]] Lines menuEntry(Session& session, const Address& address);

} // namespace transcript
