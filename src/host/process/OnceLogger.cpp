// Writes to standard error, or posts a notice.
#include "host/process/OnceLogger.h"

#include "platform/Notices.h"

#include <cstdio>

namespace velorin::host {

void OnceLogger::log(const std::string& text) {
    if (logged_.exchange(true))
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
