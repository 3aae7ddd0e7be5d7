// Loading a SoundFont beside the window, and the device that talks to its synthesizer.
#include "host/SynthDevices.h"

#include "host/SoundEngine.h"
#include "host/SynthSource.h"
#include "host/Worker.h"
#include "platform/Clock.h"

namespace velorin::host {

namespace {

class SynthDevice final : public MidiDevice {
public:
    SynthDevice(platform::Clock& clock, std::shared_ptr<SynthSource> source)
        : clock_(clock), source_(std::move(source)) {}

    ~SynthDevice() override { source_->silence(clock_.QueryPerformanceCounter()); }

    void send(const ShortMessage& message) override {
        source_->send(clock_.QueryPerformanceCounter(), message);
    }

private:
    platform::Clock& clock_;
    std::shared_ptr<SynthSource> source_;
};

} // namespace

SynthDevices::~SynthDevices() {
    giveUp();
}

std::unique_ptr<MidiDevice> SynthDevices::open(std::size_t index) {
    if (!source_ || sourceIndex_ != index) {
        giveUp();
        take(index);
    }
    return std::make_unique<SynthDevice>(clock_, source_);
}

void SynthDevices::take(std::size_t index) {
    source_ = std::make_shared<SynthSource>();
    sourceIndex_ = index;
    engine_.add(source_);
    worker_.post([source = source_, path = fonts_[index].path, complaint = cannotLoad_] {
        std::unique_ptr<Synth> synth = Synth::load(path, streamRateHz, FontLoading::whole);
        if (!synth)
            complaint->say("cannot load the SoundFont " + path.string());
        source->provide(std::move(synth));
    });
}

void SynthDevices::giveUp() {
    if (source_)
        engine_.remove(source_.get());
    source_.reset();
}

} // namespace velorin::host
