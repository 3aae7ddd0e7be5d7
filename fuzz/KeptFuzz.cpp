// Any bytes as a score that a run has left: what was sealed comes back whole, and nothing comes
// back of what was damaged.
#include "Expect.h"
#include "host/KeptFile.h"
#include "score/Score.h"
#include "score/ScoreReader.h"

#include <memory>
#include <sstream>
#include <string>

using namespace velorin;

namespace {

/// A byte changed, and the end lost, at the same place.
void expectDamageIsSeen(const std::string& bytes, std::size_t place, unsigned char change) {
    std::string changed = bytes;
    changed[place] = static_cast<char>(changed[place] ^ (change | 1U));
    expect(!host::unsealed(changed));
    expect(!host::unsealed(std::string_view(bytes).substr(0, place)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (const auto kept = host::unsealed(text)) {
        const auto score = std::make_unique<Score>();
        std::istringstream file(kept->text);
        ScoreReader(&file, *score).readRows();
        expect(host::sealed(*kept).size() <= text.size());
    }
    const std::uint64_t number = size * 0x9E3779B97F4A7C15U;
    const std::string bytes = host::sealed({text, number});
    const auto again = host::unsealed(bytes);
    expect(again && again->text == text && again->number == number);

    // A text that holds another one's seal may be cut down to that one.
    if (size < 2 || text.find("kept ") != std::string::npos)
        return 0;
    const std::size_t place = (data[0] | data[1] << 8U) % bytes.size();
    expectDamageIsSeen(bytes, place, data[size - 1]);
    return 0;
}
