// What outlives the process, however it ends: one text per run, kept by the host for the next
// start.
#pragma once

#include <string>
#include <vector>

namespace platform {

/// A text of an earlier run, in a file of its own now.
struct RecoveredText {
    std::string name;          ///< of the file, without its folder
    bool endedInOrder = false; ///< the run ended in order and kept its text all the same
};

/// All calls come from the user-interface thread.
class KeptState {
public:
    virtual ~KeptState() = default;

    /// Keeps `text` in place of what was kept before. On return the end of the process does not
    /// lose it; shortly afterwards the loss of power does not either. A failure is told of once on
    /// standard error.
    virtual void keep(const std::string& text) = 0;

    /// From now on nothing is kept.
    virtual void forget() = 0;

    /// Puts each text that an earlier run kept and did not forget into a file of its own in
    /// `folder` (a name as the program has it). When there are more than twenty such files, the
    /// ones that were put there first are removed, but none that is new or that the user has
    /// changed since. Texts of runs that are still going on are left alone. Returns the new files;
    /// each is logged on standard error.
    virtual std::vector<RecoveredText> recoverInto(const std::string& folder) = 0;
};

} // namespace platform
