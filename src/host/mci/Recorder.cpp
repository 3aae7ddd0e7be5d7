// From the tap to the file.
#include "host/mci/Recorder.h"

#include <chrono>

namespace velorin::host {

Recorder::Recorder(std::filesystem::path file, const WavFormat& format)
    : writer_(file, format, streamRateHz), thread_([this] { run(); }) {}

Recorder::~Recorder() {
    if (thread_.joinable())
        (void)finish(); // nobody wants the file
}

bool Recorder::finish() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    thread_.join();
    const bool whole = writer_.finish() && tap_->lost() == 0;
    frames_ = writer_.frames();
    return whole;
}

// Many blocks go to the file in one piece: a system call for each would cost more than the sound.
void Recorder::drain() {
    std::vector<float> piece;
    constexpr std::size_t largest = 64 * 2 * blockFrames;
    TappedBlock block;
    while (tap_->read(block)) {
        piece.insert(piece.end(), block.sound.begin(), block.sound.end());
        if (piece.size() < largest)
            continue;
        writer_.write(piece);
        piece.clear();
    }
    writer_.write(piece);
    frames_ = writer_.frames();
}

// The stream's thread cannot wake this one, so it looks at the tap by itself.
void Recorder::run() {
    bool ending = false;
    while (!ending) {
        {
            std::unique_lock lock(mutex_);
            ending =
                changed_.wait_for(lock, std::chrono::milliseconds(50), [this] { return ending_; });
        }
        drain();
    }
}

} // namespace velorin::host
