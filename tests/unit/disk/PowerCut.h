// Enumerates the states in which a power cut may leave the disk.
#pragma once

#include "DiskLog.h"

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velorin::disk {

// What the disk promises, and what it does not:
//
// - The bytes of a file are on the disk after a sync of that file. Of what was written to it since,
//   any part may be there: the first few writes, the first few and half of the next, any selection
//   of them, or the new size with zeros in place of the bytes.
// - Names are on the disk after a sync of their folder: a file that was made, renamed, linked or
//   removed. Of the changes since, any selection may be there, in their order; each of them is
//   there whole or not at all. A disk that keeps a journal would keep their order as well, and so
//   allow fewer states. A rename between two folders is there when either is synced.
// - To sync a file does not sync its name, and the other way round. So a renamed file may have its
//   new name without its bytes.
// - The power may go after each operation.
//
//     log          make .part   write   sync .part   rename to song   sync folder
//     a cut here                                    ^
//     leaves       song old, .part whole | song old, no .part

/// The content of the disk after a power cut.
struct DiskState {
    std::map<std::string, std::string> files; ///< bytes by name; a file in a lost folder is lost
    std::set<std::string> said;               ///< the marks before the cut
};

struct Survey {
    std::size_t states = 0;          ///< different ones
    std::size_t badStates = 0;       ///< of them
    std::vector<std::string> faults; ///< the first few, with what was there
};

/// Returns what is wrong with a state; empty if nothing is.
using Judge = std::function<std::string(const DiskState&)>;

/// Passes each state that the log allows to the judge, once before and after each mark.
[[nodiscard]] Survey survey(const DiskLog& log, const Judge& judge);

} // namespace velorin::disk
