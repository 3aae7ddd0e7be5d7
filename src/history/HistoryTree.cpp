// Goes from state to state in the tree.
#include "history/HistoryTree.h"

#include <algorithm>
#include <utility>

namespace velorin {

void HistoryTree::add(StateId state, Names names) {
    nodes_[current_].next = state;
    nodes_[state] = Node{current_, 0, std::move(names)};
    current_ = state;
}

StateId HistoryTree::undoTarget() const {
    return nodes_.at(current_).parent;
}

StateId HistoryTree::redoTarget() const {
    return nodes_.at(current_).next;
}

std::vector<StateId> HistoryTree::wayFromStart(StateId state) const {
    std::vector<StateId> way{state};
    while (way.back() != 0)
        way.push_back(nodes_.at(way.back()).parent);
    std::reverse(way.begin(), way.end());
    return way;
}

bool HistoryTree::isOnBranch(StateId state) const {
    if (!has(state))
        return false;
    const auto holds = [](const std::vector<StateId>& way, StateId wanted) {
        return std::find(way.begin(), way.end(), wanted) != way.end();
    };
    return holds(wayFromStart(current_), state) || holds(wayFromStart(state), current_);
}

bool HistoryTree::isUndone(StateId state) const {
    if (!has(state))
        return false;
    const std::vector<StateId> way = wayFromStart(current_);
    return std::find(way.begin(), way.end(), state) == way.end();
}

// Each state on the way knows its next one afterwards, so redo comes back the same way.
const std::string* HistoryTree::goTo(StateId state) {
    const std::string* name = nullptr;
    const auto changesName = [](const Names& names) { return names.before != names.after; };
    const std::vector<StateId> target = wayFromStart(state);
    if (std::find(target.begin(), target.end(), current_) == target.end()) {
        while (current_ != state) {
            const Node& left = nodes_.at(current_);
            if (changesName(left.names))
                name = &left.names.before;
            nodes_.at(left.parent).next = current_;
            current_ = left.parent;
        }
        return name;
    }
    auto step = std::find(target.begin(), target.end(), current_);
    for (++step; step != target.end(); ++step) {
        nodes_.at(current_).next = *step;
        current_ = *step;
        if (changesName(nodes_.at(current_).names))
            name = &nodes_.at(current_).names.after;
    }
    return name;
}

void HistoryTree::clear(StateId current) {
    nodes_ = {{0, {}}};
    current_ = 0;
    if (current != 0)
        add(current, {});
}

} // namespace velorin
