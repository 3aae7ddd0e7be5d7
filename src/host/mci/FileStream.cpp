// Decodes ahead on one thread and plays on another.
#include "host/mci/FileStream.h"

#include "host/media/Resampler.h"

#include <algorithm>
#include <cassert>
#include <chrono>
#include <vector>

namespace velorin::host {

FileStream::FileStream(std::shared_ptr<SoundReader> file, std::int64_t from, std::int64_t to)
    : file_(std::move(file)), from_(from), to_(to), thread_([this] { decode(); }) {}

FileStream::~FileStream() {
    stopDecoding();
}

void FileStream::stopDecoding() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void FileStream::setPaused(bool paused) {
    assert(owner_.isCaller());
    {
        const std::lock_guard lock(mutex_);
        paused_ = paused;
    }
    changed_.notify_all();
}

void FileStream::end() {
    assert(owner_.isCaller());
    ending_ = true;
    stopDecoding();
}

// The stream's thread cannot wake this one, so it polls for room: the queue holds fifty times what
// is played between two polls. While the stream is paused it waits. False if decoding is to stop.
bool FileStream::push(const float* samples, std::size_t count) {
    for (;;) {
        const std::size_t pushed = ready_.push(samples, count);
        samples += pushed;
        count -= pushed;
        std::unique_lock lock(mutex_);
        if (count == 0)
            return !stopping_;
        if (paused_)
            changed_.wait(lock, [this] { return stopping_ || !paused_; });
        if (changed_.wait_for(lock, std::chrono::milliseconds(20), [this] { return stopping_; }))
            return false;
    }
}

void FileStream::decode() {
    constexpr int step = 4096;
    std::vector<float> read(2 * step);
    std::vector<float> out;
    Resampler resampler(file_->rateHz(), streamRateHz);
    std::int64_t left = file_->seek(from_) ? to_ - from_ : 0;
    bool goesOn = true;
    while (goesOn && left > 0) {
        const int got =
            file_->read(read.data(), static_cast<int>(std::min<std::int64_t>(step, left)));
        left = got > 0 ? left - got : 0;
        out.clear();
        resampler.process({read.data(), 2 * static_cast<std::size_t>(std::max(got, 0))}, out);
        if (left == 0)
            resampler.flush(out);
        goesOn = push(out.data(), out.size());
    }
    decodedAll_.store(goesOn, std::memory_order_release);
}

std::int64_t FileStream::position() const {
    if (ended_)
        return to_;
    const std::int64_t played = playedFrames_.load(std::memory_order_relaxed);
    const std::int64_t seconds = played / streamRateHz;
    const std::int64_t rest = played % streamRateHz * file_->rateHz() / streamRateHz;
    return std::min(from_ + seconds * file_->rateHz() + rest, to_);
}

bool FileStream::isReadAhead() const {
    assert(owner_.isCaller());
    return decodedAll_ || !thread_.joinable() || ready_.write_available() == 0;
}

void FileStream::mix(SoundBlock& block, std::int64_t, const StreamClock&) {
    assert(StreamThreadScope::isActive());
    const float target = paused_ || ending_ ? 0.0F : 1.0F;
    if (silent_ || (gain_ == 0.0F && target == 0.0F)) {
        silent_ = silent_ || ending_;
        return;
    }
    const bool isLast = decodedAll_.load(std::memory_order_acquire);
    const std::size_t got = ready_.pop(own_.data(), own_.size());
    const float step = (target - gain_) / blockFrames;
    for (std::size_t i = 0; i < got; ++i) {
        const std::size_t frame = i / 2;
        block[i] += own_[i] * (gain_ + step * static_cast<float>(frame + 1));
    }
    gain_ = target;
    playedFrames_.fetch_add(static_cast<std::int64_t>(got / 2), std::memory_order_relaxed);
    if (isLast && got < own_.size()) {
        ended_ = true;
        silent_ = true;
    }
}

} // namespace velorin::host
