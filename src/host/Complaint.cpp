// Lines on standard error, each in one write so that two threads do not mix theirs.
#include "host/Complaint.h"

#include <cstdio>

namespace velorin::host {

void Complaint::say(const std::string& text) {
    if (said_.exchange(true))
        return;
    const std::string line = "velorin: " + text + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace velorin::host
