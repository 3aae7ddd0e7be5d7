// Lines on standard error, and the way to the notices.
#include "host/Complaint.h"

#include "platform/Notices.h"

#include <cstdio>

namespace velorin::host {

void Complaint::say(const std::string& text) {
    if (said_.exchange(true))
        return;
    if (notices_ != nullptr)
        notices_->post({text, {}}); // which logs it too
    else
        logLine(text);
}

void logLine(const std::string& text) {
    std::string line = "velorin: ";
    for (const char character : text) {
        if (character != '\r')
            line += character == '\n' ? ' ' : character;
    }
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace velorin::host
