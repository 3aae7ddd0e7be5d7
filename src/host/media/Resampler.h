// A change of sample rate for a stereo stream.
#pragma once

#include <memory>
#include <span>
#include <vector>

namespace velorin::host {

/// All spans hold left and right interleaved. With equal rates the sound is copied.
class Resampler {
public:
    Resampler(int fromHz, int toHz);

    /// Takes `in` and appends to `out` what is ready.
    void process(std::span<const float> in, std::vector<float>& out);

    /// Appends what the filter still holds back. In all, the output is as long as the input, to the
    /// nearest frame.
    void flush(std::vector<float>& out);

private:
    struct Closer {
        void operator()(void* filter) const;
    };

    void run(const float* in, std::size_t frames, std::vector<float>& out);

    std::unique_ptr<void, Closer> filter_; ///< null if the rates are equal
};

} // namespace velorin::host
