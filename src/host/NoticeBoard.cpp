// A queue of notices, and a call through the event loop for each.
#include "host/NoticeBoard.h"

#include "host/Complaint.h"
#include "host/DurableFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaObject>

#include <algorithm>
#include <utility>

namespace velorin::host {

NoticeBoard::NoticeBoard(std::filesystem::path unread) : unread_(std::move(unread)) {}

// Not before there is a window: until then the run before this one may still be ending.
void NoticeBoard::readUnread() {
    const auto bytes = unread_.empty() ? std::nullopt : readWhole(unread_);
    if (!bytes)
        return;
    const std::lock_guard guard(mutex_);
    const QJsonArray lines = QJsonDocument::fromJson(QByteArray::fromStdString(*bytes)).array();
    for (const QJsonValue& line : lines)
        waiting_.push_back(
            {line["text"].toString().toStdString(), line["scoreToOpen"].toString().toStdString()});
    std::error_code ignored; // read again at the next start
    std::filesystem::remove(unread_, ignored);
}

// The last of them: earlier ones may be of a failure that came again and again.
NoticeBoard::~NoticeBoard() {
    constexpr std::size_t most = 20;
    if (!waiting_.empty())
        readUnread(); // of a run before this one, if no window has shown them
    while (waiting_.size() > most)
        waiting_.pop_front();
    if (waiting_.empty() || unread_.empty())
        return;
    QJsonArray lines;
    for (const platform::Notice& notice : waiting_)
        lines.append(QJsonObject{{"text", QString::fromStdString(notice.text)},
                                 {"scoreToOpen", QString::fromStdString(notice.scoreToOpen)}});
    constexpr unsigned forTheUser = 0700;
    makeFolderLasting(unread_.parent_path(), forTheUser);
    writeLasting(unread_, QJsonDocument(lines).toJson().toStdString());
}

void NoticeBoard::post(const platform::Notice& notice) {
    logLine(notice.text);
    {
        const std::lock_guard guard(mutex_);
        // One that nobody has read yet, perhaps since the run before, need not be told twice.
        const bool waitsAlready =
            std::ranges::any_of(waiting_, [&notice](const platform::Notice& other) {
                return other.text == notice.text && other.scoreToOpen == notice.scoreToOpen;
            });
        if (!waitsAlready)
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
    if (callback && !callback_)
        readUnread();
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
