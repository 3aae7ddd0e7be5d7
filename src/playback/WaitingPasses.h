// The passes of a looping song that wait for the one inside them, counted and not nested.
#pragma once

#include <cstdint>
#include <vector>

namespace velorin {

/// How a pass through the score was begun; it decides its first and its last steps.
enum class Pass { song, selection };

/// A stack, the outermost first, in which equal neighbours are one entry: a song that loops for
/// days takes one. All that a waiting pass needs when its turn comes is its kind, since the play
/// state itself is shared by all passes.
class WaitingPasses {
public:
    [[nodiscard]] bool empty() const { return runs_.empty(); }

    void push(Pass pass) {
        if (runs_.empty() || runs_.back().pass != pass)
            runs_.push_back({pass, 0});
        ++runs_.back().count;
    }

    /// The innermost, taken out. There must be one.
    Pass pop() {
        const Pass pass = runs_.back().pass;
        if (--runs_.back().count == 0)
            runs_.pop_back();
        return pass;
    }

private:
    struct PassRun {
        Pass pass;
        std::uint64_t count;
    };
    std::vector<PassRun> runs_;
};

} // namespace velorin
