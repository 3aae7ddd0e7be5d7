// The lock that allows one running copy of the program for each user.
#pragma once

#include "host/disk/DurableFile.h"

#include <chrono>
#include <filesystem>
#include <functional>

namespace velorin::host {

/// A copy that is ending has closed its windows, but writing its files may take some seconds. It
/// announces its end in the lock file, and a copy that starts meanwhile waits for the lock:
///
///     first copy    runs ----- windows go, announceEnd ----- files ----- end, lock free
///     second copy                                  isAnotherRunning .... false, lock held
class SingleInstance {
public:
    /// Called between two attempts to lock, while the other copy is ending. Returns false to stop
    /// waiting.
    using KeepWaiting = std::function<bool()>;

    /// With an empty path there is no lock. Without `keepWaiting` the wait sleeps between two
    /// attempts and lasts `longestWait` at most.
    explicit SingleInstance(std::filesystem::path file, KeepWaiting keepWaiting = {});
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// True if another copy holds the lock and is not ending. If false, this one holds it from now
    /// on. Also false if the file cannot be created: two copies are better than none.
    [[nodiscard]] bool isAnotherRunning();

    /// Tells copies that start from now on that this one is about to release the lock.
    void announceEnd();

    static constexpr std::chrono::seconds longestWait{10};

private:
    [[nodiscard]] bool isOtherExiting() const;

    std::filesystem::path file_;
    KeepWaiting keepWaiting_;
    Descriptor lock_;
};

/// The path of the lock file: in the folder of the user's session, if that exists and belongs to
/// the user, else in the state folder. Never in a folder that others may write to. Empty if there
/// is neither.
[[nodiscard]] std::filesystem::path instanceLockFile(const char* xdgRuntimeDir,
                                                     const std::filesystem::path& stateFolder);

} // namespace velorin::host
