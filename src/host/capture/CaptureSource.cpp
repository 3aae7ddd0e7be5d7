// Recording from the engine, and from the sound card's input.
#include "host/capture/CaptureSource.h"

#include "host/card/CardModule.h"
#include "host/engine/FramePacer.h"
#include "host/engine/SoundEngine.h"
#include "host/process/StreamThread.h"

namespace velorin::host {

namespace {

class EngineCapture final : public CaptureSource {
public:
    explicit EngineCapture(SoundEngine& engine) : engine_(engine) {}
    ~EngineCapture() override { stop(); }

    bool start(std::shared_ptr<SoundTap> tap) override {
        stop();
        tap_ = tap.get();
        engine_.add(std::move(tap));
        return true;
    }

    void stop() override {
        if (tap_)
            engine_.remove(tap_);
        tap_ = nullptr;
    }

private:
    SoundEngine& engine_;
    SoundTap* tap_ = nullptr; ///< owned by the engine
};

class CardCapture final : public CaptureSource {
public:
    bool open() {
        auto card = openCard({CardDirection::input, streamRateHz, SoundEngine::bufferFrames,
                              [this](float* stereo, int frames) { take(stereo, frames); }});
        if (card)
            card_ = std::move(*card);
        return card_ != nullptr;
    }

    bool start(std::shared_ptr<SoundTap> tap) override {
        stop();
        tap_ = std::move(tap);
        card_->run();
        return true;
    }

    void stop() override { card_->pause(); }

private:
    // Frames that do not fill a block wait for the next call. A lost card gives silence without
    // waiting; the pacer records it in real time.
    VELORIN_STREAM_THREAD void take(const float* stereo, int frames) {
        const StreamThreadScope scope;
        if (card_->isLost())
            pacer_.wait(frames);
        for (int frame = 0; frame < frames; ++frame) {
            const auto at = 2 * static_cast<std::size_t>(filled_);
            block_.sound[at] = stereo[2 * frame];
            block_.sound[at + 1] = stereo[2 * frame + 1];
            if (++filled_ < blockFrames)
                continue;
            tap_->write(block_);
            block_.firstFrame += blockFrames;
            filled_ = 0;
        }
    }

    std::shared_ptr<SoundTap> tap_;
    TappedBlock block_;
    int filled_ = 0;
    FramePacer pacer_;                 ///< once the card is lost
    std::unique_ptr<CardStream> card_; ///< last: no call comes while the others end
};

} // namespace

std::unique_ptr<CaptureSource> captureOf(SoundEngine& engine) {
    return std::make_unique<EngineCapture>(engine);
}

std::unique_ptr<CaptureSource> captureOfCard() {
    auto card = std::make_unique<CardCapture>();
    return card->open() ? std::move(card) : nullptr;
}

} // namespace velorin::host
