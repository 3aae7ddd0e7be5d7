// The entry of the module velorin-card.so.
#include "host/card/CardModule.h"
#include "host/card/SdlCard.h"

velorin::host::OpenCard velorinOpenCard() {
    return velorin::host::SdlCard::open;
}
