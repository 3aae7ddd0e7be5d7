// Loads the module that knows the sound card.
#pragma once

#include "host/card/Card.h"

namespace velorin::host {

/// Opens a stream with the module velorin-card.so. The first call loads the module, which stays
/// loaded. Fails with the reason if there is no usable card, or if the module or a library that it
/// needs is missing or damaged. From any thread.
[[nodiscard]] platform::Result<std::unique_ptr<CardStream>> openCard(CardRequest request);

} // namespace velorin::host

/// What the module gives. It is found by its name, so its name is not mangled.
extern "C" velorin::host::OpenCard velorinOpenCard();
