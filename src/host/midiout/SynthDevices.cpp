// Loads SoundFonts in the background, and adapts a synthesizer to the two device interfaces.
#include "host/midiout/SynthDevices.h"

#include "host/engine/SoundEngine.h"
#include "host/midiout/SynthSource.h"
#include "host/process/Worker.h"
#include "host/synth/SynthModule.h"
#include "platform/Clock.h"

namespace velorin::host {

namespace {

constexpr char notesMissing[] =
    "The synthesizer does not keep up, so notes are missing. Play fewer notes at a time.";

class SynthDevice final : public MidiDevice {
public:
    SynthDevice(platform::Clock& clock, std::shared_ptr<SynthSource> source,
                std::shared_ptr<OnceLogger> noRoom)
        : clock_(clock), source_(std::move(source)), noRoom_(std::move(noRoom)) {}

    ~SynthDevice() override { source_->silence(clock_.QueryPerformanceCounter()); }

    void send(const ShortMessage& message) override {
        sendAt(clock_.QueryPerformanceCounter(), message);
    }

    void sendAt(std::int64_t stampNs, const ShortMessage& message) override {
        if (!source_->send(stampNs, message))
            noRoom_->log(notesMissing);
    }

private:
    platform::Clock& clock_;
    std::shared_ptr<SynthSource> source_;
    std::shared_ptr<OnceLogger> noRoom_;
};

// Messages are queued this long before they are due, so the sequencer's thread may wake that much
// late.
class SynthPort final : public SequencerPort {
public:
    SynthPort(platform::Clock& clock, std::shared_ptr<SynthSource> source,
              std::shared_ptr<OnceLogger> noRoom)
        : clock_(clock), source_(std::move(source)), noRoom_(std::move(noRoom)) {}

    ~SynthPort() override { source_->silence(clock_.QueryPerformanceCounter()); }

    bool isReady() const override { return source_->isLoadedOrFailed(); }
    std::int64_t leadNs() const override { return 20'000'000; }
    void send(std::int64_t dueNs, const ShortMessage& message) override {
        if (!source_->send(dueNs, message))
            noRoom_->log(notesMissing);
    }

private:
    platform::Clock& clock_;
    std::shared_ptr<SynthSource> source_;
    std::shared_ptr<OnceLogger> noRoom_;
};

} // namespace

SynthDevices::~SynthDevices() {
    release(device_);
    release(sequencer_);
}

std::unique_ptr<MidiDevice> SynthDevices::open(std::size_t index) {
    take(device_, index);
    return std::make_unique<SynthDevice>(clock_, device_.source, noRoom_);
}

std::unique_ptr<SequencerPort> SynthDevices::openForSequencer(std::size_t index) {
    take(sequencer_, index);
    return std::make_unique<SynthPort>(clock_, sequencer_.source, noRoom_);
}

void SynthDevices::take(Playing& playing, std::size_t index) {
    if (playing.source && playing.index == index)
        return;
    release(playing);
    playing = {std::make_shared<SynthSource>(), index};
    engine_.add(playing.source);
    worker_.post([source = playing.source, path = fonts_[index].path, log = cannotLoad_] {
        auto load = loadSynthModule();
        std::unique_ptr<Synth> synth =
            load ? (*load)(path, streamRateHz, FontLoading::whole, Effects::usual) : nullptr;
        if (!load)
            log->log("The built-in synthesizer is silent, because it cannot be loaded: " +
                     load.reason());
        else if (!synth)
            log->log("The SoundFont \"" + path.string() +
                     "\" cannot be read, so its device is silent. Choose another device in "
                     "the Setup Toolbar.");
        source->provide(std::move(synth));
    });
}

void SynthDevices::release(Playing& playing) {
    if (playing.source)
        engine_.remove(playing.source.get());
    playing.source.reset();
}

} // namespace velorin::host
