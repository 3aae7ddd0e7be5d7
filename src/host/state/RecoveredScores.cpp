// Recognises recovered scores that the user has not changed.
#include "host/state/RecoveredScores.h"

#include "host/disk/TimestampedName.h"

#include <algorithm>
#include <regex>
#include <tuple>
#include <utility>

namespace velorin::host {

std::string recoveredName(std::time_t moment, int count) {
    return timestampedName("recovered", moment, count) + ".sng";
}

// The name has the moment in local time. Where the time zone has changed since, a file that nobody
// has touched counts as the user's, which is the harmless mistake.
bool isUntouchedRecovery(const ScoreFile& file) {
    static const std::regex ours(R"((recovered \d{4}-\d\d-\d\d \d\d-\d\d-\d\d)( \(\d+\))?\.sng)");
    std::smatch parts;
    return std::regex_match(file.name, parts, ours) &&
           parts[1].str() + ".sng" == recoveredName(file.changed);
}

// The name does not tell when a file appeared: the clock may have been set back since, and a score
// may have waited long for its recovery.
std::vector<std::string> oldestUntouched(std::vector<ScoreFile> files, std::size_t most) {
    std::erase_if(files, [](const ScoreFile& file) { return !isUntouchedRecovery(file); });
    std::sort(files.begin(), files.end(), [](const ScoreFile& one, const ScoreFile& other) {
        return std::tie(one.appearedAtNs, one.name) < std::tie(other.appearedAtNs, other.name);
    });
    files.resize(files.size() - std::min(files.size(), most));
    std::vector<std::string> names;
    names.reserve(files.size());
    for (ScoreFile& file : files)
        names.push_back(std::move(file.name));
    return names;
}

} // namespace velorin::host
