// Notices from all threads, handed to the user-interface thread.
#pragma once

#include "platform/Notices.h"

#include <QObject>

#include <deque>
#include <mutex>

namespace velorin::host {

/// Made on the user-interface thread, before the threads that post. Outlives all of them.
class NoticeBoard final : public platform::Notices {
public:
    void post(const platform::Notice& notice) override;
    std::optional<platform::Notice> take() override;
    void onPosted(std::function<void()> callback) override;

private:
    void wake();

    std::mutex mutex_; ///< guards `waiting_`
    std::deque<platform::Notice> waiting_;
    std::function<void()> callback_; ///< of the user-interface thread alone
    QObject receiver_;               ///< whose thread the callback runs on
};

} // namespace velorin::host
