// Notices from all threads, handed to the user-interface thread.
#pragma once

#include "platform/Notices.h"

#include <QObject>

#include <deque>
#include <filesystem>
#include <mutex>

namespace velorin::host {

/// Made on the user-interface thread, before the threads that post. Outlives all of them. Notices
/// that nobody has taken at the end of a run, such as those posted while the windows close, wait in
/// a file for the next one.
class NoticeBoard final : public platform::Notices {
public:
    /// `unread`: the file; empty for none.
    explicit NoticeBoard(std::filesystem::path unread = {});
    ~NoticeBoard() override;
    NoticeBoard(const NoticeBoard&) = delete;
    NoticeBoard& operator=(const NoticeBoard&) = delete;

    void post(const platform::Notice& notice) override;
    std::optional<platform::Notice> take() override;
    void onPosted(std::function<void()> callback) override;

private:
    void wake();
    void readUnread();

    std::filesystem::path unread_;
    std::mutex mutex_; ///< guards `waiting_`
    std::deque<platform::Notice> waiting_;
    std::function<void()> callback_; ///< of the user-interface thread alone
    QObject receiver_;               ///< whose thread the callback runs on
};

} // namespace velorin::host
