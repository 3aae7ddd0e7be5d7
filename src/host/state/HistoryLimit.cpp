// The oldest packs go first.
#include "host/state/HistoryLimit.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace velorin::host {

std::uint64_t bytesOf(const std::vector<Pack>& packs) {
    return std::accumulate(packs.begin(), packs.end(), std::uint64_t{0},
                           [](std::uint64_t sum, const Pack& pack) { return sum + pack.bytes; });
}

std::vector<std::string> expiredPacks(std::vector<Pack> packs, std::time_t now, int mostDays,
                                      std::uint64_t mostBytes,
                                      const std::function<bool(const Pack&)>& isProtected) {
    constexpr std::time_t secondsPerDay = 86'400;
    std::sort(packs.begin(), packs.end(), [](const Pack& one, const Pack& other) {
        return std::tie(one.changed, one.name) < std::tie(other.changed, other.name);
    });
    std::uint64_t bytes = bytesOf(packs);
    std::vector<std::string> expired;
    for (const Pack& pack : packs) {
        const bool isOld = pack.changed < now - mostDays * secondsPerDay;
        if ((!isOld && bytes <= mostBytes) || isProtected(pack))
            continue;
        bytes -= pack.bytes;
        expired.push_back(pack.name);
    }
    return expired;
}

} // namespace velorin::host
