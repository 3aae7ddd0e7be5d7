// The queue, its file, and the callback from the event loop.
#include "host/desktop/NoticeQueue.h"

#include "host/disk/DurableFile.h"
#include "host/process/OnceLogger.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaObject>

#include <algorithm>
#include <cassert>
#include <utility>

namespace velorin::host {

NoticeQueue::NoticeQueue(std::filesystem::path unread) : unread_(std::move(unread)) {}

// Not before there is a window: until then the previous run may still be ending.
void NoticeQueue::readUnread() {
    const auto bytes = unread_.empty() ? std::nullopt : readFile(unread_);
    if (!bytes)
        return;
    const std::lock_guard guard(mutex_);
    const QJsonArray lines = QJsonDocument::fromJson(QByteArray::fromStdString(*bytes)).array();
    for (const QJsonValue line : lines)
        waiting_.push_back(
            {line["text"].toString().toStdString(), line["scoreToOpen"].toString().toStdString()});
    std::error_code ignored; // read again at the next start
    std::filesystem::remove(unread_, ignored);
}

// Only the latest are saved: a failure may have repeated itself many times.
NoticeQueue::~NoticeQueue() {
    constexpr std::size_t most = 20;
    if (!waiting_.empty())
        readUnread(); // of an earlier run, if no window has shown them
    while (waiting_.size() > most)
        waiting_.pop_front();
    if (waiting_.empty() || unread_.empty())
        return;
    QJsonArray lines;
    for (const platform::Notice& notice : waiting_)
        lines.append(QJsonObject{{"text", QString::fromStdString(notice.text)},
                                 {"scoreToOpen", QString::fromStdString(notice.scoreToOpen)}});
    constexpr unsigned forTheUser = 0700;
    createFoldersDurably(unread_.parent_path(), forTheUser);
    // Each notice was logged when it was posted, so a failure loses nothing else.
    (void)writeDurably(unread_, QJsonDocument(lines).toJson().toStdString());
}

void NoticeQueue::post(const platform::Notice& notice) {
    logLine(notice.text);
    {
        const std::lock_guard guard(mutex_);
        // A notice that nobody has read yet, perhaps from the previous run, is not added again.
        const bool waitsAlready =
            std::ranges::any_of(waiting_, [&notice](const platform::Notice& other) {
                return other.text == notice.text && other.scoreToOpen == notice.scoreToOpen;
            });
        if (!waitsAlready)
            waiting_.push_back(notice);
    }
    wake();
}

std::optional<platform::Notice> NoticeQueue::take() {
    assert(owner_.isCaller());
    const std::lock_guard guard(mutex_);
    if (waiting_.empty())
        return std::nullopt;
    platform::Notice notice = std::move(waiting_.front());
    waiting_.pop_front();
    return notice;
}

void NoticeQueue::onPosted(std::function<void()> callback) {
    assert(owner_.isCaller());
    if (callback && !callback_)
        readUnread();
    callback_ = std::move(callback);
    wake();
}

// The callback takes the notices that are still queued when it runs, so an extra call does no harm.
void NoticeQueue::wake() {
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
