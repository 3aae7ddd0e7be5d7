// Opening a score, after a look whether the file is one at all.
#include "convert/LoadedScore.h"

#include <istream>

namespace velorin::convert {

namespace {

// The program opens anything and ends up with an empty score. Here that would replace a mistaken
// name by a file of silence, so the first line has to begin with a number.
bool beginsWithNumber(std::istream& in) {
    while (in.peek() == ' ') {
        in.get();
    }
    if (in.peek() == '-' || in.peek() == '+')
        in.get();
    const int first = in.peek();
    return first >= '0' && first <= '9';
}

} // namespace

platform::Result<void> LoadedScore::open(const std::string& name, const std::string& text,
                                         const PlaySetup* setup) {
    host.offer(name, text);
    {
        const auto file = host.platform.files.openForInput(name);
        if (!file)
            return platform::Failure{"cannot be read"};
        if (!beginsWithNumber(*file))
            return platform::Failure{"is not a score"};
    }
    session.files.OpenPoliFile(name);
    if (setup != nullptr)
        setup->applyTo(session);
    return {};
}

} // namespace velorin::convert
