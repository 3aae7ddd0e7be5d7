// Sounds the notes that the pen meets.
#pragma once

#include "playback/InstrumentSample.h"
#include "windows/reader/PlaceWords.h"

namespace velorin {

class NoteSounding;
struct Studio;

/// Off at the first start; the settings remember it. One soft note at a time, never while a song
/// plays or is recorded. User-interface thread.
class PenSound {
public:
    /// Both outlive this.
    PenSound(Studio& studio, NoteSounding& sounding);

    void toggle();
    [[nodiscard]] bool isOn() const { return isOn_; }

    /// The pen has come to `spot`. A note there sounds with its instrument, an empty place with
    /// that of the current row. On the lanes only the row's own note in the column sounds.
    void meet(const Spot& spot, const SpotContent& content);
    void stop() { sample_.stop(); }

private:
    [[nodiscard]] int instrumentOf(const Spot& spot, const SpotContent& content) const;
    void meetLane(const Spot& spot);

    Studio& studio_;
    InstrumentSample sample_;
    bool isOn_;
};

} // namespace velorin
