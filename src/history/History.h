// The history of the score: every finished change, undo and redo, and the way back to any state.
#pragma once

#include "history/HistoryTree.h"
#include "history/MemoryHistoryStore.h"
#include "model/Score.h"
#include "platform/HistoryStore.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velorin {

struct Studio;
class ScoreFiles;

/// What came of a step in the history.
enum class HistoryStep {
    done,
    atEnd,  ///< there is no state in that direction
    locked, ///< not now: a song plays or is recorded, or a drag is going on
    lost,   ///< the state cannot be read any more
};

/// Looks at the score from outside; no procedure knows of it. A state is put back like a file: by
/// the reader and the redraw of a load. User-interface thread only.
class History {
public:
    /// Without a store the states are kept in memory until the end. All outlive this.
    History(Studio& studio, ScoreFiles& files, platform::HistoryStore* store);

    /// Starts with the score as it is: the sheet of the start.
    void begin();

    /// Adds a state if the score has changed since the last call, and a saved moment if it was
    /// saved. If nothing has changed, this costs a few comparisons. Call it where a change may have
    /// finished: no mouse button is held, and no handler that changes the score runs. A call before
    /// `begin` or after `end` does nothing.
    ///
    /// Selecting another row is no change, although it may give that row another instrument.
    void changeFinished();

    HistoryStep undo();
    HistoryStep redo();
    /// Goes to a state. One on the branch of the current state is reached like by undo or redo. Any
    /// other one, as of an earlier run, becomes a new state, so undo leads back.
    HistoryStep goTo(StateId state);

    /// False while a step would return `locked`.
    [[nodiscard]] bool canStep() const;

    /// All entries, the oldest first. The reference is valid until the next change; `revision`
    /// grows with each. The first call reads those of earlier runs.
    [[nodiscard]] const std::vector<platform::HistoryEntry>& entries();
    [[nodiscard]] std::uint64_t revision() const { return revision_; }
    [[nodiscard]] StateId current() const { return tree_.current(); }
    /// A state of this run that is not on the way from the start to the current one.
    [[nodiscard]] bool isUndone(StateId state) const { return tree_.isUndone(state); }

    /// What the next undo reverts, or redo repeats, "3 notes drawn on channel 2"; empty at the end.
    [[nodiscard]] std::string undoText() const;
    [[nodiscard]] std::string redoText() const;

    /// Reads a state into `score`. False if it is lost.
    [[nodiscard]] bool read(StateId state, Score& score);

    /// Removes everything. The score as it is becomes the first state.
    void clear();
    [[nodiscard]] std::uint64_t bytesUsed() { return store_.bytesUsed(); }
    [[nodiscard]] std::uint64_t mostBytes() { return store_.mostBytes(); }

    /// There is something to lose: the score has notes or marks and is not as in its file.
    [[nodiscard]] bool isUnsaved() const { return isUnsaved_; }

    /// The program is about to end cleanly. What the end does to the score is not a change by the
    /// user. A score that is not saved is recovered by the next start.
    void end();
    /// An error ends the program: the next start recovers the score as it is, saved or not.
    void endWithError();

    /// Called after each new entry, step and save. May be empty.
    std::function<void()> onChanged;
    /// Called once in a run: a command has replaced a score that was not saved. May be empty.
    std::function<void()> onReplacedUnsaved;

private:
    /// A summary that differs whenever the score differs.
    struct Stamp {
        std::array<std::uint64_t, 5> counts{};
        std::int16_t Tempo = 0;
        RowArray<std::int16_t> RowInstrument{};
        std::string name;
        bool operator==(const Stamp&) const = default;
    };

    [[nodiscard]] Stamp stamp() const;
    [[nodiscard]] bool hasChanged();
    void addState();
    void addSavedMoment();
    [[nodiscard]] StateId add(platform::HistoryEntry entry, const std::string& text);
    void reportReplaced();
    [[nodiscard]] std::optional<std::string> textOf(StateId state);
    HistoryStep putBack(StateId state);
    HistoryStep putBackAsNew(StateId state);
    bool show(StateId state);
    void takeStock();
    void changed();
    [[nodiscard]] std::string textOfEntry(StateId state) const;

    Studio& studio_;
    ScoreFiles& files_;
    MemoryHistoryStore memory_; ///< in place of the host's, if it has none
    platform::HistoryStore& store_;
    HistoryTree tree_;
    Score last_; ///< the score in the current state
    Stamp seen_;
    std::uint64_t savesSeen_ = 0;
    std::uint64_t opensSeen_ = 0;
    std::string startText_;                       ///< the sheet of the start
    std::vector<platform::HistoryEntry> entries_; ///< of this run; of all after `entries`
    std::uint64_t revision_ = 1;
    bool hasEarlier_ = false;
    bool isUnsaved_ = false;
    bool hasReported_ = false;
    bool isActive_ = false; ///< between `begin` and the end
    bool isStepping_ = false;
};

} // namespace velorin
