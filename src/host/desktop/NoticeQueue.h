// Notices from any thread, queued for the user-interface thread.
#pragma once

#include "platform/Notices.h"
#include "platform/OwnerThread.h"

#include <QObject>

#include <deque>
#include <filesystem>
#include <mutex>

namespace velorin::host {

/// Created on the user-interface thread before the threads that post, and outlives all of them.
/// Notices that nobody has taken at the end of a run, such as those posted while the windows close,
/// are saved to a file for the next run.
class NoticeQueue final : public platform::Notices {
public:
    /// `unread`: the file; empty for none.
    explicit NoticeQueue(std::filesystem::path unread = {});
    ~NoticeQueue() override;
    NoticeQueue(const NoticeQueue&) = delete;
    NoticeQueue& operator=(const NoticeQueue&) = delete;

    void post(const platform::Notice& notice) override;
    std::optional<platform::Notice> take() override;
    void onPosted(std::function<void()> callback) override;

private:
    void wake();
    void readUnread();

    platform::OwnerThread owner_; ///< the user-interface thread
    std::filesystem::path unread_;
    std::mutex mutex_; ///< guards `waiting_`
    std::deque<platform::Notice> waiting_;
    std::function<void()> callback_; ///< user-interface thread only
    QObject receiver_;               ///< whose thread the callback runs on
};

} // namespace velorin::host
