// Which packs of the history are too old or too many.
#pragma once

#include "host/state/HistoryFolder.h"

#include <cstdint>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace velorin::host {

/// The names of the packs to remove: those whose last record is older than `mostDays`, and the
/// oldest while all of them together have more than `mostBytes`. None for which `isProtected` is
/// true.
[[nodiscard]] std::vector<std::string>
expiredPacks(std::vector<Pack> packs, std::time_t now, int mostDays, std::uint64_t mostBytes,
             const std::function<bool(const Pack&)>& isProtected);

/// The bytes of all packs.
[[nodiscard]] std::uint64_t bytesOf(const std::vector<Pack>& packs);

} // namespace velorin::host
