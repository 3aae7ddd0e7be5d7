// Date and time in local time.
#include "host/disk/TimestampedName.h"

namespace velorin::host {

std::string timestampedName(const std::string& word, std::time_t moment, int count) {
    std::tm parts{};
    localtime_r(&moment, &parts);
    char name[32];
    const std::size_t length = std::strftime(name, sizeof name, " %Y-%m-%d %H-%M-%S", &parts);
    std::string whole = word + std::string(name, length);
    if (count > 1)
        whole += " (" + std::to_string(count) + ")";
    return whole;
}

} // namespace velorin::host
