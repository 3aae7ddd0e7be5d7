// Loops that wait for an inner loop, counted instead of nested on the stack.
#pragma once

#include <cstdint>
#include <vector>

namespace velorin {

/// A stack with the outermost loop first. Equal neighbours share one entry. `Loop` holds what a
/// loop needs to continue; it must be comparable.
template <typename Loop>
class WaitingLoops {
public:
    [[nodiscard]] bool empty() const { return runs_.empty(); }

    void push(const Loop& loop) {
        if (runs_.empty() || !(runs_.back().loop == loop))
            runs_.push_back({loop, 0});
        ++runs_.back().count;
    }

    /// Removes and returns the innermost. There must be one.
    Loop pop() {
        const Loop loop = runs_.back().loop;
        if (--runs_.back().count == 0)
            runs_.pop_back();
        return loop;
    }

private:
    struct LoopRun {
        Loop loop;
        std::uint64_t count;
    };
    std::vector<LoopRun> runs_;
};

/// How a pass through the score was started. This decides its first and last steps.
enum class Pass { song, selection };

/// The waiting passes of a looping song. All passes share the play state, so a waiting pass needs
/// only its kind, and a song that loops for days takes one entry.
using WaitingPasses = WaitingLoops<Pass>;

} // namespace velorin
