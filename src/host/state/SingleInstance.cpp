// The lock, held on a file.
#include "host/state/SingleInstance.h"

#include "host/disk/FileLock.h"

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

SingleInstance::KeepWaiting sleepBetweenAttempts() {
    using Clock = std::chrono::steady_clock;
    return [until = Clock::now() + SingleInstance::longestWait] {
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

SingleInstance::SingleInstance(fs::path file, KeepWaiting keepWaiting)
    : file_(std::move(file)), keepWaiting_(std::move(keepWaiting)) {}

// The file is removed while it is still locked. A copy that opens the path later creates a new
// file, and one that has opened it before sees that the path names another file.
SingleInstance::~SingleInstance() {
    std::error_code ignored; // an unlocked file does no harm
    if (lock_.isOpen())
        fs::remove(file_, ignored);
}

bool SingleInstance::isAnotherRunning() {
    if (lock_.isOpen() || file_.empty())
        return false;
    std::error_code error;
    fs::create_directories(file_.parent_path().parent_path(), error);
    mkdir(file_.parent_path().c_str(), S_IRWXU);
    const KeepWaiting keepWaiting = keepWaiting_ ? keepWaiting_ : sleepBetweenAttempts();
    for (;;) {
        lock_ = lockFile(file_);
        if (lock_.isOpen())
            break;
        if (errno != EWOULDBLOCK)
            return false;
        if (!isOtherExiting() || !keepWaiting())
            return true;
    }
    // Clears what an earlier run wrote that was killed while it ended.
    [[maybe_unused]] const int ignored = ftruncate(lock_.number(), 0);
    return false;
}

bool SingleInstance::isOtherExiting() const {
    const auto text = readFile(file_);
    return !text || *text == endingWord; // if the file is gone by now, that copy has ended
}

void SingleInstance::announceEnd() {
    if (!lock_.isOpen())
        return;
    // If this fails, a copy that starts now tells the user that this one is running.
    [[maybe_unused]] const auto ignored =
        pwrite(lock_.number(), endingWord.data(), endingWord.size(), 0);
}

fs::path instanceLockFile(const char* xdgRuntimeDir, const fs::path& stateFolder) {
    const fs::path session = xdgRuntimeDir != nullptr ? xdgRuntimeDir : "";
    const fs::path folder = isOwnFolder(session) ? session : stateFolder;
    return folder.empty() ? fs::path() : folder / "velorin.lock";
}

} // namespace velorin::host
