// Looks at the score before and after a press on a tableau.
#pragma once

#include "windows/strip/PressWords.h"

#include <string>

namespace velorin {

class Session;

/// Reads only, and never loads the Setup Toolbar. User-interface thread.
class PressWatch {
public:
    /// `session` outlives this.
    explicit PressWatch(Session& session) : session_(session) {}

    /// Before the handler of a press at a place in pixels of the tableau.
    [[nodiscard]] Press before(Tableau where, int button, double x, double y) const;
    /// After it: the sentence for the line of state; empty for none.
    [[nodiscard]] std::string after(Press press) const;

private:
    void readCell(Press& press, int column, int pitch) const;
    void readLane(Press& press, double y) const;

    Session& session_;
};

} // namespace velorin
