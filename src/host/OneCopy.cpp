// The place of the one copy, on a file lock.
#include "host/OneCopy.h"

#include "host/StateFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view endingWord = "ending";

OneCopy::GoOn sleepBetweenLooks() {
    using Clock = std::chrono::steady_clock;
    return [until = Clock::now() + OneCopy::longestWait] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return Clock::now() < until;
    };
}

bool isOwnFolder(const fs::path& folder) {
    struct stat status {};
    return folder.is_absolute() && stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

} // namespace

OneCopy::OneCopy(fs::path file, GoOn goOn) : file_(std::move(file)), goOn_(std::move(goOn)) {}

// Removed while it is still locked: who opens it afterwards makes a new one, and who has opened it
// before sees that the name leads elsewhere.
OneCopy::~OneCopy() {
    std::error_code ignored; // an unlocked file that stays is in nobody's way
    if (lock_.isOpen())
        fs::remove(file_, ignored);
}

bool OneCopy::isTaken() {
    if (lock_.isOpen() || file_.empty())
        return false;
    std::error_code error;
    fs::create_directories(file_.parent_path().parent_path(), error);
    mkdir(file_.parent_path().c_str(), S_IRWXU);
    const GoOn goOn = goOn_ ? goOn_ : sleepBetweenLooks();
    for (;;) {
        lock_ = lockFile(file_);
        if (lock_.isOpen())
            break;
        if (errno != EWOULDBLOCK)
            return false;
        if (!isOtherEnding() || !goOn())
            return true;
    }
    // What an earlier run wrote, that was killed while it ended.
    [[maybe_unused]] const int ignored = ftruncate(lock_.number(), 0);
    return false;
}

bool OneCopy::isOtherEnding() const {
    const auto text = readWhole(file_);
    return !text || *text == endingWord; // a file that is gone by now is an end as well
}

void OneCopy::announceEnd() {
    if (!lock_.isOpen())
        return;
    // Without the word a copy that starts now says that this one is running.
    [[maybe_unused]] const auto ignored =
        pwrite(lock_.number(), endingWord.data(), endingWord.size(), 0);
}

fs::path oneCopyFile(const char* xdgRuntimeDir, const fs::path& stateFolder) {
    const fs::path session = xdgRuntimeDir != nullptr ? xdgRuntimeDir : "";
    const fs::path folder = isOwnFolder(session) ? session : stateFolder;
    return folder.empty() ? fs::path() : folder / "velorin.lock";
}

} // namespace velorin::host
