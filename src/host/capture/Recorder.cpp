// Moves sound from the tap to the file.
#include "host/capture/Recorder.h"

#include <algorithm>
#include <chrono>

namespace velorin::host {

Recorder::Recorder(const PartFile& part, const WavFormat& format, OnCut onCut,
                   std::int64_t mostDataBytes)
    : part_(part),
      onCut_(std::move(onCut)),
      writer_(part.number(), format, streamRateHz, mostDataBytes),
      thread_([this] { run(); }) {}

Recorder::~Recorder() {
    if (thread_.joinable())
        finish();
}

void Recorder::finish() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

double Recorder::lostMs() const {
    return static_cast<double>(tap_->lost() * blockFrames) * 1000.0 / streamRateHz;
}

// The frames are numbered, so a gap shows where blocks were lost. A jump without lost blocks is
// left as it is.
void Recorder::fillGap(const TappedBlock& block, std::vector<float>& piece) {
    const std::int64_t unfilled = tap_->lost() - filledBlocks_;
    if (nextFrame_ >= 0 && unfilled > 0) {
        const std::int64_t blocks =
            std::clamp<std::int64_t>((block.firstFrame - nextFrame_) / blockFrames, 0, unfilled);
        piece.resize(piece.size() + static_cast<std::size_t>(blocks) * block.sound.size());
        filledBlocks_ += blocks;
    }
    nextFrame_ = block.firstFrame + blockFrames;
}

// Many blocks are written at once: a system call for each would cost more than the sound.
void Recorder::drain() {
    std::vector<float> piece;
    constexpr std::size_t largest = 64 * 2 * blockFrames;
    TappedBlock block;
    while (tap_->read(block)) {
        fillGap(block, piece);
        piece.insert(piece.end(), block.sound.begin(), block.sound.end());
        if (piece.size() < largest)
            continue;
        writer_.write(piece);
        piece.clear();
    }
    writer_.write(piece);
    frames_ = writer_.frames();
    reportIfCut();
}

void Recorder::reportIfCut() {
    if (writer_.error() && onCut_)
        std::exchange(onCut_, nullptr)(writer_.error(), writer_.seconds());
}

// The stream's thread cannot wake this one, so it polls the tap. The header and the name are synced
// at the beginning, so that the rest can be recovered after a power cut.
void Recorder::run() {
    // A failure shows when the sound is written and synced.
    (void)syncFile(part_.path());
    (void)syncFolder(part_.path().parent_path());
    bool ending = false;
    while (!ending) {
        {
            std::unique_lock lock(mutex_);
            ending =
                changed_.wait_for(lock, std::chrono::milliseconds(50), [this] { return ending_; });
        }
        drain();
    }
    writer_.finish();
    frames_ = writer_.frames();
    reportIfCut();
}

} // namespace velorin::host
