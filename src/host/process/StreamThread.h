// The stream's thread: a mark for the functions that it calls, and a flag while it makes sound.
#pragma once

#include <utility>

namespace velorin::host {

/// Stands before the declaration of a function that the stream's thread calls. The stream's thread
/// is the sound card's callback, or the clock's thread without a card. Such a function takes no
/// lock, allocates and frees nothing, touches no file, does not sleep and does not log.
/// tests/house/stream_thread.py checks the bodies, tests/unit/host/stream what they call.
#define VELORIN_STREAM_THREAD

/// Opened by each function through which a thread enters the stream.
class StreamThreadScope {
public:
    StreamThreadScope() : before_(std::exchange(active_, true)) {}
    ~StreamThreadScope() { active_ = before_; }
    StreamThreadScope(const StreamThreadScope&) = delete;
    StreamThreadScope& operator=(const StreamThreadScope&) = delete;

    /// Whether this thread makes sound now.
    [[nodiscard]] static bool isActive() { return active_; }

private:
    friend class StreamThreadWait;
    static inline constinit thread_local bool active_ = false;
    bool before_;
};

/// The wait for the time of the next buffer, the one thing that the stream's thread may wait for.
class StreamThreadWait {
public:
    StreamThreadWait() : before_(std::exchange(StreamThreadScope::active_, false)) {}
    ~StreamThreadWait() { StreamThreadScope::active_ = before_; }
    StreamThreadWait(const StreamThreadWait&) = delete;
    StreamThreadWait& operator=(const StreamThreadWait&) = delete;

private:
    bool before_;
};

} // namespace velorin::host
