// A target behind a thread gets what it would get without it.
#include "convert/BackgroundTarget.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <numeric>

namespace velorin::convert {
namespace {

using Pieces = std::vector<std::vector<std::int16_t>>;

/// What a written file went through; outlives the target.
struct Ledger {
    Pieces pieces;
    int failsAt = -1; ///< the piece that cannot be written
    bool finishes = true;
    bool finished = false;
    std::shared_future<void> gate; ///< if there is one, each piece waits for it
    std::atomic<int> taken{0};
};

class KeptTarget final : public SoundTarget {
public:
    explicit KeptTarget(Ledger& ledger) : ledger_(ledger) {}

    bool write(const std::int16_t* stereo, int frames) override {
        ++ledger_.taken;
        if (ledger_.gate.valid())
            ledger_.gate.wait();
        if (static_cast<int>(ledger_.pieces.size()) == ledger_.failsAt)
            return false;
        ledger_.pieces.emplace_back(stereo, stereo + 2 * static_cast<std::ptrdiff_t>(frames));
        return true;
    }
    platform::Result<void> finish() override {
        ledger_.finished = ledger_.finishes;
        return ledger_.finishes ? platform::Result<void>() : platform::Failure{"cannot be ended"};
    }
    [[nodiscard]] std::string failureReason() const override { return "has no more room"; }

private:
    Ledger& ledger_;
};

std::vector<std::int16_t> piece(int frames, int first) {
    std::vector<std::int16_t> samples(2 * static_cast<std::size_t>(frames));
    std::iota(samples.begin(), samples.end(), static_cast<std::int16_t>(first));
    return samples;
}

TEST(ABackgroundTarget, PassesOnAllPiecesInTheirOrder) {
    Ledger ledger;
    BackgroundTarget target(std::make_unique<KeptTarget>(ledger));
    Pieces expected;
    for (int i = 0; i < 500; ++i) {
        expected.push_back(piece(1 + i % 7, i));
        ASSERT_TRUE(target.write(expected.back().data(), 1 + i % 7));
    }
    EXPECT_TRUE(target.finish());
    EXPECT_EQ(ledger.pieces, expected);
    EXPECT_TRUE(ledger.finished);
}

TEST(ABackgroundTarget, TellsOfAFailureAtALaterWrite) {
    Ledger ledger;
    ledger.failsAt = 3;
    BackgroundTarget target(std::make_unique<KeptTarget>(ledger));
    const auto samples = piece(4, 0);
    int written = 0;
    while (written < 1000 && target.write(samples.data(), 4))
        ++written;
    EXPECT_LT(written, 1000);
    EXPECT_EQ(target.failureReason(), "has no more room");
    EXPECT_EQ(target.finish().reason(), "has no more room");
    EXPECT_EQ(ledger.pieces.size(), 3U);
    EXPECT_FALSE(ledger.finished);
}

TEST(ABackgroundTarget, TellsAtTheEndOfAFailureOfTheLastPiece) {
    Ledger ledger;
    ledger.failsAt = 0;
    BackgroundTarget target(std::make_unique<KeptTarget>(ledger));
    const auto samples = piece(4, 0);
    (void)target.write(samples.data(), 4); // it may be known already
    EXPECT_EQ(target.finish().reason(), "has no more room");
}

TEST(ABackgroundTarget, PassesOnTheFailureOfTheEnd) {
    Ledger ledger;
    ledger.finishes = false;
    BackgroundTarget target(std::make_unique<KeptTarget>(ledger));
    EXPECT_EQ(target.finish().reason(), "cannot be ended");
}

TEST(ABackgroundTarget, LeavesOutTheRestIfItIsDestroyedBefore) {
    Ledger ledger;
    std::promise<void> open;
    ledger.gate = open.get_future().share();
    std::thread opener;
    {
        BackgroundTarget target(std::make_unique<KeptTarget>(ledger));
        const auto samples = piece(4, 0);
        for (int i = 0; i < 20; ++i) // the thread sleeps until 16 are waiting
            EXPECT_TRUE(target.write(samples.data(), 4));
        while (ledger.taken == 0)
            std::this_thread::yield();
        opener = std::thread([&open] { open.set_value(); });
    }
    opener.join();
    EXPECT_FALSE(ledger.finished);
}

} // namespace
} // namespace velorin::convert
