// What the History window shows of a state: its picture, its figures, and what differs from the
// score as it is.
#pragma once

#include "model/RowArray.h"
#include "studio/Studio.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>
#include <list>
#include <vector>

namespace velorin {

class History;

struct StateSummary {
    bool isLost = false;   ///< the state cannot be read any more; the rest is empty then
    bool isSame = false;   ///< the score is as it is now
    QImage picture;        ///< of the size asked for
    QString figures;       ///< "192 columns  ·  0:35  ·  tempo 66"
    std::vector<int> rows; ///< [0, 13): those that differ
    RowArray<std::int16_t> RowInstrument{}; ///< in the state
};

/// Makes summaries and keeps the last ones. It reads a state with the history's own reader, so the
/// score of the program is not touched.
class StateSummaries {
public:
    /// `live` is the program's.
    StateSummaries(History& history, Studio& live);

    /// Valid until the next call. `pictureSize` is in device pixels.
    [[nodiscard]] const StateSummary& of(std::int64_t state, QSize pictureSize);
    /// The score has changed: what was made compares with another one.
    void forget() { made_.clear(); }

private:
    struct Made {
        std::int64_t state;
        StateSummary summary;
    };

    [[nodiscard]] StateSummary make(std::int64_t state, QSize pictureSize);
    [[nodiscard]] QString figures();
    [[nodiscard]] int firstColumn(int differing) const;
    [[nodiscard]] QImage draw(QSize size);

    History& history_;
    Studio& live_;
    Studio studio_;        ///< what is drawn
    std::list<Made> made_; ///< the last one first
};

} // namespace velorin
