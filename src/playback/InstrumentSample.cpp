// A short note that lets the user hear an instrument before it is chosen.
#include "playback/InstrumentSample.h"

#include "model/Cell.h"
#include "platform/Text.h"
#include "platform/Timers.h"
#include "playback/NoteSounding.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr int fullVolume = 127;
constexpr int middleC = 60;

} // namespace

InstrumentSample::InstrumentSample(Studio& studio, NoteSounding& sounding)
    : studio_(studio), sounding_(sounding) {}

InstrumentSample::~InstrumentSample() {
    stop();
}

bool InstrumentSample::isOff() const {
    return studio_.run.IsPlaying.isSet() || studio_.run.RecordingFlag.isSet();
}

/// A row without a volume box sounds as loud as it can.
int InstrumentSample::volume() const {
    const auto text = studio_.setup.vol(studio_.score.CurrentRow);
    const auto volume = text ? platform::readInt16(*text) : std::nullopt;
    return std::clamp<int>(volume.value_or(fullVolume), 0, fullVolume);
}

void InstrumentSample::start(int instrument) {
    startNote(instrument, middleC, volume());
}

void InstrumentSample::startSoftly(int instrument, int pitchIndex) {
    constexpr int tenths = 4;
    if (pitchIndex < 0 || pitchIndex > lastPitch)
        return;
    const int full = volume();
    startNote(instrument, PitchToKey(pitchIndex), full == 0 ? 0 : std::max(1, full * tenths / 10));
}

void InstrumentSample::startNote(int instrument, int key, int velocity) {
    stop();
    if (isOff() || velocity == 0)
        return;
    current_ = instrument;
    key_ = key;
    sounding_.startSample(instrument, velocity, key);
    timer_ = studio_.platform.timers.after(lengthMs, [this] {
        stop();
        if (onEnd)
            onEnd();
    });
}

void InstrumentSample::stop() {
    if (!current_)
        return;
    studio_.platform.timers.cancel(timer_);
    sounding_.stopSample(*current_, key_);
    current_.reset();
}

} // namespace velorin
