// A queue of pieces and the thread that empties it.
#include "convert/BackgroundTarget.h"

#include <utility>

namespace velorin::convert {

namespace {

constexpr std::size_t mostWaiting = 64; ///< a piece has 4096 frames at most: six seconds, 1 MiB

/// The thread sleeps until so many pieces are waiting. Writing a piece into a WAV is so short that
/// waking the thread for each one would cost more than the writing.
constexpr std::size_t wakingCount = 16;

} // namespace

BackgroundTarget::BackgroundTarget(std::unique_ptr<SoundTarget> target)
    : target_(std::move(target)), thread_([this] { run(); }) {}

BackgroundTarget::~BackgroundTarget() {
    end(true);
}

bool BackgroundTarget::write(const std::int16_t* stereo, int frames) {
    Piece piece;
    std::unique_lock lock(mutex_);
    if (!used_.empty()) {
        piece = std::move(used_.back());
        used_.pop_back();
    }
    lock.unlock();
    piece.assign(stereo, stereo + 2 * static_cast<std::ptrdiff_t>(frames));
    lock.lock();
    changed_.wait(lock, [this] { return waiting_.size() < mostWaiting || failed_; });
    if (failed_)
        return false;
    waiting_.push_back(std::move(piece));
    const bool wakes = waiting_.size() == wakingCount;
    lock.unlock();
    if (wakes)
        changed_.notify_all();
    return true;
}

platform::Result<void> BackgroundTarget::finish() {
    end(false);
    if (failed_)
        return platform::Failure{target_->failureReason()};
    return target_->finish();
}

std::string BackgroundTarget::failureReason() const {
    const std::lock_guard lock(mutex_); // after a failure the thread leaves the target alone
    return target_->failureReason();
}

void BackgroundTarget::run() {
    std::unique_lock lock(mutex_);
    while (!failed_) {
        if (waiting_.empty())
            changed_.wait(lock, [this] { return waiting_.size() >= wakingCount || isEnding_; });
        if (waiting_.empty())
            return;
        Piece piece = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        changed_.notify_all();
        const bool written = target_->write(piece.data(), static_cast<int>(piece.size() / 2));
        lock.lock();
        failed_ = !written;
        used_.push_back(std::move(piece));
    }
    lock.unlock();
    changed_.notify_all();
}

void BackgroundTarget::end(bool dropsRest) {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
        if (dropsRest)
            waiting_.clear();
    }
    changed_.notify_all();
    thread_.join();
}

} // namespace velorin::convert
