// The adapter to soxr.
#include "host/media/Resampler.h"

#include <soxr.h>

namespace velorin::host {

void Resampler::Closer::operator()(void* filter) const {
    soxr_delete(static_cast<soxr_t>(filter));
}

Resampler::Resampler(int fromHz, int toHz) {
    if (fromHz == toHz)
        return;
    const soxr_io_spec_t form = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
    const soxr_runtime_spec_t oneThread = soxr_runtime_spec(1);
    filter_.reset(soxr_create(fromHz, toHz, 2, nullptr, &form, &quality, &oneThread));
}

void Resampler::run(const float* in, std::size_t frames, std::vector<float>& out) {
    constexpr std::size_t step = 4096;
    for (std::size_t got = step; got > 0 || frames > 0;) {
        const std::size_t before = out.size();
        out.resize(before + 2 * step);
        std::size_t used = 0;
        got = 0;
        const bool failed = soxr_process(static_cast<soxr_t>(filter_.get()), in, frames, &used,
                                         out.data() + before, step, &got) != nullptr;
        out.resize(before + 2 * got);
        if (failed || (used == 0 && got == 0))
            return;
        if (in) {
            in += 2 * used;
            frames -= used;
            if (frames == 0 && got < step)
                return;
        }
    }
}

void Resampler::process(std::span<const float> in, std::vector<float>& out) {
    if (in.empty())
        return;
    if (filter_)
        run(in.data(), in.size() / 2, out);
    else
        out.insert(out.end(), in.begin(), in.end());
}

void Resampler::flush(std::vector<float>& out) {
    if (filter_)
        run(nullptr, 0, out);
}

} // namespace velorin::host
