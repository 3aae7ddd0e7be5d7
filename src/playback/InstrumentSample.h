// A short note that lets the user hear an instrument before it is chosen.
#pragma once

#include <functional>
#include <optional>

namespace velorin {

class NoteSounding;
struct Studio;

/// One note at a time. The volume is that of `CurrentRow`, which would get the instrument. It
/// changes nothing that a song or a tableau uses. User-interface thread only.
class InstrumentSample {
public:
    InstrumentSample(Studio& studio, NoteSounding& sounding);
    ~InstrumentSample(); ///< ends the note
    InstrumentSample(const InstrumentSample&) = delete;
    InstrumentSample& operator=(const InstrumentSample&) = delete;

    static constexpr int lengthMs = 800;

    /// True while a song plays or is recorded: a sample would be heard in it.
    [[nodiscard]] bool isOff() const;

    /// Sounds an instrument [0, 128) or a percussion sound [128, 175). Ends the note before. Does
    /// nothing more while it is off or if the row's volume is 0. Errors of the device are ignored.
    void start(int instrument);
    /// The same, at a pitch index [0, 128), and softly: at four tenths of the volume. A percussion
    /// sound has no pitch. Does nothing for another index.
    void startSoftly(int instrument, int pitchIndex);
    void stop();

    /// The instrument that sounds.
    [[nodiscard]] std::optional<int> current() const { return current_; }

    std::function<void()> onEnd; ///< the note has ended after its whole length

private:
    [[nodiscard]] int volume() const; ///< [0, 127]
    void startNote(int instrument, int key, int velocity);

    Studio& studio_;
    NoteSounding& sounding_;
    std::optional<int> current_;
    int key_ = 0;
    int timer_ = 0;
};

} // namespace velorin
