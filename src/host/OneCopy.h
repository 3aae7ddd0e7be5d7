// The place of the one copy: a lock that a copy of the program holds from its start to its end.
#pragma once

#include "host/DurableFile.h"

#include <chrono>
#include <filesystem>
#include <functional>

namespace velorin::host {

/// A copy that is ending has no window any more, though its files may take some seconds. It notes
/// that in the lock file, and a copy that starts meanwhile waits for the lock:
///
///     first copy    runs ----- windows go, announceEnd ----- files ----- end, lock free
///     second copy                                  isTaken ............. false, lock held
class OneCopy {
public:
    /// Called between two looks at the lock while the other copy is ending; false to stop waiting.
    using GoOn = std::function<bool()>;

    /// With an empty path there is no lock, and the place is never taken. Without `goOn` the wait
    /// sleeps between two looks and lasts `longestWait` at most.
    explicit OneCopy(std::filesystem::path file, GoOn goOn = {});
    ~OneCopy();
    OneCopy(const OneCopy&) = delete;
    OneCopy& operator=(const OneCopy&) = delete;

    /// Whether another copy has the place and keeps it. If not, this one has it from now on. Also
    /// false if the file cannot be made: better two copies than none.
    [[nodiscard]] bool isTaken();

    /// Tells copies that start from now on that this one is about to free the place.
    void announceEnd();

    static constexpr std::chrono::seconds longestWait{10};

private:
    [[nodiscard]] bool isOtherEnding() const;

    std::filesystem::path file_;
    GoOn goOn_;
    Descriptor lock_;
};

/// The lock file: in the folder of the user's session if that is there and the user's own, else in
/// the state folder. Never in a folder that others may write to. Empty if there is neither.
[[nodiscard]] std::filesystem::path oneCopyFile(const char* xdgRuntimeDir,
                                                const std::filesystem::path& stateFolder);

} // namespace velorin::host
