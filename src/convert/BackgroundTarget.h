// A sound target with a thread of its own: the next piece is rendered while the last one is
// encoded.
#pragma once

#include "convert/SoundTarget.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace velorin::convert {

/// Passes everything on to another target, in the same pieces and order, so the file has the same
/// bytes. Used by one thread. The destructor waits for the piece that is being written and leaves
/// out the rest.
class BackgroundTarget final : public SoundTarget {
public:
    explicit BackgroundTarget(std::unique_ptr<SoundTarget> target);
    ~BackgroundTarget() override;
    BackgroundTarget(const BackgroundTarget&) = delete;
    BackgroundTarget& operator=(const BackgroundTarget&) = delete;

    /// Waits while 64 pieces are waiting to be written. If the other target fails, a later write or
    /// `finish` fails.
    bool write(const std::int16_t* stereo, int frames) override;

    platform::Result<void> finish() override;
    [[nodiscard]] std::string failureReason() const override;

private:
    using Piece = std::vector<std::int16_t>;

    void run();
    void end(bool dropsRest);

    std::unique_ptr<SoundTarget> target_; ///< the thread's, until it has ended
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Piece> waiting_;
    std::vector<Piece> used_; ///< empty pieces, to be filled again
    bool isEnding_ = false;
    bool failed_ = false;
    std::thread thread_; ///< last: it uses all of the above
};

} // namespace velorin::convert
