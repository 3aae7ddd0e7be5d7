// A count with its noun.
#include "platform/CountedText.h"

namespace platform {

std::string counted(std::int64_t count, std::string_view noun) {
    return counted(count, std::to_string(count), noun);
}

std::string counted(std::int64_t count, std::string_view digits, std::string_view noun) {
    std::string text(digits);
    text.append(" ").append(noun);
    return count == 1 ? text : text.append("s");
}

} // namespace platform
