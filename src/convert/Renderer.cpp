// The mix of all rows.
#include "convert/Renderer.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace velorin::convert {

namespace {

constexpr int quietSample = 3; ///< -80 dB of 32768 is 3.3

} // namespace

int quietFramesAtEnd(const std::int16_t* stereo, int frames) {
    const auto begin = std::make_reverse_iterator(stereo + 2 * static_cast<std::ptrdiff_t>(frames));
    const auto end = std::make_reverse_iterator(stereo);
    const auto loud = std::find_if(
        begin, end, [](std::int16_t sample) { return std::abs(sample) > quietSample; });
    return static_cast<int>((loud - begin) / 2);
}

std::optional<int> MixRenderer::render(int frames) {
    synth_.render(buffer_.data(), frames);
    if (!take_(buffer_.data(), frames))
        return std::nullopt;
    return quietFramesAtEnd(buffer_.data(), frames);
}

} // namespace velorin::convert
