// Loops that wait for the one inside them, counted and not nested.
#pragma once

#include <cstdint>
#include <vector>

namespace velorin {

/// A stack, the outermost first, in which equal neighbours are one entry. A waiting loop is what it
/// needs when its turn comes, and can be compared.
template <typename Loop>
class WaitingLoops {
public:
    [[nodiscard]] bool empty() const { return runs_.empty(); }

    void push(const Loop& loop) {
        if (runs_.empty() || !(runs_.back().loop == loop))
            runs_.push_back({loop, 0});
        ++runs_.back().count;
    }

    /// The innermost, taken out. There must be one.
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

/// How a pass through the score was begun; it decides its first and its last steps.
enum class Pass { song, selection };

/// Of a looping song: one for days takes one entry. All that a waiting pass needs is its kind,
/// since the play state itself is shared by all passes.
using WaitingPasses = WaitingLoops<Pass>;

} // namespace velorin
