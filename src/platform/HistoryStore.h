// Where the history of the score is kept: its states in this run and in earlier runs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// A line of the history: a state of the score, or the moment at which a state was saved.
struct HistoryEntry {
    /// Microseconds since 1970, UTC: when the entry was added. Unique; a later entry has a larger
    /// one.
    std::int64_t id = 0;
    std::int64_t state = 0;  ///< the state that it shows: its own id, or that of the saved state
    std::int64_t parent = 0; ///< the state that was changed; 0 for the sheet of the start
    std::string kind;        ///< a word of `history/Change.h`; empty or unknown: any change
    std::string text;        ///< what changed, one line in UTF-8, "3 notes drawn on channel 2"
    std::string name;        ///< the score's file name in this state; empty for a new score
    /// True if a score file held the state at this moment: it was saved, or just opened.
    bool isSaved = false;
};

/// A recovered score of an earlier run, in its own file.
struct RecoveredFile {
    std::string name;          ///< of the file, without its folder
    bool endedCleanly = false; ///< the run did not crash; its score was not saved
};

/// A failure to keep is reported once, in a notice, and disturbs nothing: `add` returns an id all
/// the same, and the latest states stay in memory. All calls come from the user-interface thread
/// and return without waiting for the disk.
class HistoryStore {
public:
    virtual ~HistoryStore() = default;

    /// Adds a state with its score as text (`exactText`), which becomes the current one, or, if
    /// `score` is empty, a saved moment of the state `entry.state`. On return it survives the end
    /// of the process; shortly afterwards it survives a power cut too. Returns the id, which the
    /// store chooses; `entry.id` is not used, nor `entry.state` of a state.
    virtual std::int64_t add(const HistoryEntry& entry, const std::string& score) = 0;

    /// The user went to another state of this run; 0 is the sheet of the start.
    virtual void setCurrent(std::int64_t state) = 0;

    /// All entries of this and earlier runs that can be read, the oldest first. A damaged one is
    /// left out, reported once on standard error, and its bytes are set aside.
    [[nodiscard]] virtual std::vector<HistoryEntry> entries() = 0;

    /// The score of a state as text; no value if it is not kept any more or cannot be read.
    [[nodiscard]] virtual std::optional<std::string> score(std::int64_t state) = 0;

    /// Removes all entries, also those of earlier runs, but not what another running copy keeps.
    virtual void clear() = 0;

    [[nodiscard]] virtual std::uint64_t bytesUsed() = 0; ///< on the disk
    [[nodiscard]] virtual std::uint64_t mostBytes() = 0; ///< the limit; the oldest states go first

    /// The run ends. With `isSafe` the current state needs no recovery: it is saved, or blank.
    /// Later calls of `add` and `setCurrent` do nothing.
    virtual void end(bool isSafe) = 0;

    /// Writes the current state of each earlier run that crashed, or ended with it unsafe, to its
    /// own score file in `folder` (a name as the program has it). A run whose current state is the
    /// sheet of the start or has neither notes nor chord marks has nothing to recover. If there are
    /// more than twenty such files, the oldest are removed, but none that is new or that the user
    /// has changed since. Runs that are still going on are left alone. Returns the new files; each
    /// is logged on standard error.
    virtual std::vector<RecoveredFile> recoverInto(const std::string& folder) = 0;
};

} // namespace platform
