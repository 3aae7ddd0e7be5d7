// Opening a score, after a look whether the file is one at all.
#include "convert/LoadedScore.h"

#include "score/ScoreFiles.h"

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

std::string LoadedScore::open(const std::string& name) {
    {
        const auto file = host.platform.files.openForInput(name);
        if (!file)
            return "cannot be read";
        if (!beginsWithNumber(*file))
            return "is no score";
    }
    ScoreFiles files(studio, desk);
    files.OpenPoliFile(name);
    return {};
}

} // namespace velorin::convert
