// Nothing is lost: the score after each finished change, given to the host to keep.
#pragma once

#include "score/Cell.h"

#include <QObject>

#include <array>
#include <cstdint>
#include <string>

namespace platform {
class KeptState;
} // namespace platform

namespace velorin {

class SavedState;
struct Score;

/// A change is finished when its handler is back in the message loop and no mouse button is held:
/// a drag is one change, however many cells it passes. It has no timer; it looks when the loop is
/// about to sleep, and before each press. To see that nothing has changed costs a few comparisons.
class KeptScore : public QObject {
    Q_OBJECT

public:
    /// `state` may be null, and then nothing here does anything. All outlive this.
    KeptScore(platform::KeptState* state, const Score& score, const SavedState& saved);

    /// From now on the loop is watched.
    void watch();

    /// Keeps the score if it has changed since the last call. A score without notes and chord marks
    /// is not kept: there is nothing to lose.
    void changeFinished();

    /// Keeps the score as it is for the next start, saved or not: for an end by an error. Later
    /// changes are not kept.
    void setAside();

    /// The program is about to end in order, and what that does to the score is no change of the
    /// user's. A score that is not saved stays kept for the next start; else nothing stays.
    void end();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What differs whenever the score does.
    struct Stamp {
        std::array<std::uint64_t, 3> changes{};
        std::int16_t Tempo = 0;
        std::array<std::int16_t, scoreRows> RowInstrument{};
        bool operator==(const Stamp&) const = default;
    };
    [[nodiscard]] Stamp stamp() const;

    platform::KeptState* state_;
    const Score& score_;
    const SavedState& saved_;
    Stamp seen_;
    std::string kept_;       ///< the text that is kept; empty for none
    bool isDecided_ = false; ///< what stays for the next start
};

} // namespace velorin
