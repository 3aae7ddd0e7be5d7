// The safety net of a save: what a file holds is put beside it until the save has gone well.
#pragma once

#include <optional>
#include <string>

namespace platform {
class Files;
}

namespace velorin {

/// Made before the file is opened for writing. The copy has the file's name with ".bak" added.
class KeptCopy {
public:
    /// Copies the file, if there is one to lose. With `keepEarlier` a copy that is there already is
    /// the good one, since the file itself is what a failed save left of it.
    KeptCopy(platform::Files& files, const std::string& name, bool keepEarlier);

    /// Ends the save: a good one takes the copy away, a failed one leaves it.
    void finish(bool saved);

private:
    platform::Files& files_;
    std::string name_;
    bool isBeside_ = false;             ///< there is a copy, and it is ours
    std::optional<std::string> inHand_; ///< the content, where no copy could be put beside the file
};

} // namespace velorin
