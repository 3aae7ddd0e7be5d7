// The states of a run as a tree: where undo and redo lead.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace velorin {

/// 0 is the sheet of the start.
using StateId = std::int64_t;

/// A change after an undo starts a new branch; nothing is dropped. Undo leads to the state that was
/// changed, redo to the one that was left last:
///
///     start --- A --- B --- C        undo, undo, new change D:
///                `--- D              undo leads to A, redo back to D; B and C stay
class HistoryTree {
public:
    /// The names of the score's file before and after the change that made a state.
    struct Names {
        std::string before;
        std::string after;
    };

    /// Adds a state made from the current one, which becomes the current one.
    void add(StateId state, Names names);

    [[nodiscard]] StateId current() const { return current_; }
    [[nodiscard]] bool canUndo() const { return current_ != 0; }
    [[nodiscard]] StateId undoTarget() const; ///< only if `canUndo`
    [[nodiscard]] bool canRedo() const { return redoTarget() != 0; }
    [[nodiscard]] StateId redoTarget() const; ///< 0 if there is none

    /// The current state or one before or after it on its branch, the start included.
    [[nodiscard]] bool isOnBranch(StateId state) const;

    /// Goes to a state on the branch. Returns the name that the score's file has there, or null if
    /// no change on the way gave it another name.
    const std::string* goTo(StateId state);

    [[nodiscard]] bool isUndone(StateId state) const;
    [[nodiscard]] bool has(StateId state) const { return nodes_.count(state) != 0; }

    /// Forgets all states. The current one becomes the only one, made from the start; with 0 there
    /// is none.
    void clear(StateId current);

private:
    struct Node {
        StateId parent = 0;
        StateId next = 0; ///< where redo leads
        Names names;
    };

    [[nodiscard]] std::vector<StateId> wayFromStart(StateId state) const;

    std::map<StateId, Node> nodes_{{0, {}}};
    StateId current_ = 0;
};

} // namespace velorin
