// The copy beside a file while it is replaced.
#include "score/KeptCopy.h"

#include "platform/Files.h"

#include <istream>
#include <ostream>

namespace velorin {

namespace {

/// No value for a file too long to be held; none of the program's own comes near this length.
std::optional<std::string> contentOf(std::istream& stream) {
    constexpr std::size_t most = 16'000'000;
    std::string content;
    char block[4096];
    while (stream.read(block, sizeof block) || stream.gcount() > 0) {
        content.append(block, static_cast<std::size_t>(stream.gcount()));
        if (content.size() > most)
            return std::nullopt;
    }
    return content;
}

} // namespace

// A full disk or a locked folder takes no copy. Then the content is held until the save has ended.
KeptCopy::KeptCopy(platform::Files& files, const std::string& name, bool keepEarlier)
    : files_(files), name_(name) {
    const std::string beside = name + ".bak";
    const auto file = files_.openForInput(name);
    isBeside_ = keepEarlier && files_.canRead(beside);
    if (!file || isBeside_)
        return;
    isBeside_ = files_.copy(name, beside);
    if (!isBeside_)
        inHand_ = contentOf(*file);
}

void KeptCopy::finish(bool saved) {
    if (saved && isBeside_)
        files_.remove(name_ + ".bak");
    if (saved || !inHand_)
        return;
    if (const auto file = files_.openForOutput(name_))
        *file << *inHand_ << std::flush;
}

} // namespace velorin
