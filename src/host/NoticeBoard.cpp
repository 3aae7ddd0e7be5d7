// A queue of notices, and a call through the event loop for each.
#include "host/NoticeBoard.h"

#include "host/Complaint.h"

#include <QMetaObject>

#include <utility>

namespace velorin::host {

void NoticeBoard::post(const platform::Notice& notice) {
    logLine(notice.text);
    {
        const std::lock_guard guard(mutex_);
        waiting_.push_back(notice);
    }
    wake();
}

std::optional<platform::Notice> NoticeBoard::take() {
    const std::lock_guard guard(mutex_);
    if (waiting_.empty())
        return std::nullopt;
    platform::Notice notice = std::move(waiting_.front());
    waiting_.pop_front();
    return notice;
}

void NoticeBoard::onPosted(std::function<void()> callback) {
    callback_ = std::move(callback);
    wake();
}

// The callback sees the notices that are still there when it runs; a call too many does no harm.
void NoticeBoard::wake() {
    QMetaObject::invokeMethod(
        &receiver_,
        [this] {
            const bool isWaiting = [this] {
                const std::lock_guard guard(mutex_);
                return !waiting_.empty();
            }();
            if (isWaiting && callback_)
                callback_();
        },
        Qt::QueuedConnection);
}

} // namespace velorin::host
