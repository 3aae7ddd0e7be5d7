// Finds the answer to a command string.
#include "support/ScriptedMci.h"

#include "platform/Text.h"

#include <algorithm>

namespace scripted {

std::uint32_t ScriptedMci::mciSendStringA(const std::string& command, std::string* reply) {
    log.push_back(time_.stamp() + " " + command);
    const std::string lower = platform::lowerCase(command);
    const auto found =
        std::find_if(replies_.rbegin(), replies_.rend(),
                     [&lower](const Reply& each) { return lower.starts_with(each.prefix); });
    if (reply != nullptr)
        *reply = found != replies_.rend() ? found->text : "";
    return found != replies_.rend() ? found->code : 0;
}

std::string ScriptedMci::mciGetErrorStringA(std::uint32_t code) {
    return "error " + std::to_string(code);
}

void ScriptedMci::reply(const std::string& prefix, std::uint32_t code, const std::string& text) {
    replies_.push_back({platform::lowerCase(prefix), code, text});
}

} // namespace scripted
