// A synthesizer for each row, which plays the rows before it as well.
#include "convert/StemRenderer.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace velorin::convert {

namespace {

constexpr float stepsOf16Bits = 32766.0F; ///< of the synthesizer, for a full scale of 1.0
constexpr std::uint8_t softest = 1;       ///< a velocity; -84 dB of the loudest

std::uint16_t bitOf(int channel) {
    return static_cast<std::uint16_t>(1U << static_cast<unsigned>(channel));
}

host::ShortMessage softly(host::ShortMessage message) {
    const bool beginsNote = message.kind() == 0x90 && message.byte[2] > 0;
    if (beginsNote)
        message.byte[2] = softest;
    return message;
}

} // namespace

StemRenderer::StemRenderer(const RowArray<std::uint16_t>& channels, const MakeSynth& makeSynth,
                           TakeStem take)
    : take_(std::move(take)),
      mixSamples_(2 * std::size_t{mostFrames}),
      before_(mixSamples_.size()),
      samples_(mixSamples_.size()),
      stem_(mixSamples_.size()) {
    std::uint16_t used = 0;
    for (int row = 0; row < scoreRows; ++row) {
        if (channels[row] == 0)
            continue;
        used = static_cast<std::uint16_t>(used | channels[row]);
        layers_.push_back({row, used, makeSynth()});
    }
}

std::vector<int> StemRenderer::rows() const {
    std::vector<int> rows;
    for (const Layer& layer : layers_)
        rows.push_back(layer.row);
    return rows;
}

// A note can end the note of another row on its channel, as a closed hi-hat ends an open one. So a
// layer gets the notes of later rows too if they share a channel with it, too softly to be heard.
void StemRenderer::send(const host::ShortMessage& message) {
    for (const Layer& layer : layers_) {
        if ((layer.channels & bitOf(message.channel())) != 0)
            layer.synth->send(*row_ <= layer.row ? message : softly(message));
    }
}

void StemRenderer::reset() {
    for (const Layer& layer : layers_)
        layer.synth->reset();
}

std::optional<int> StemRenderer::render(int frames) {
    const auto count = 2 * static_cast<std::ptrdiff_t>(frames);
    std::fill(before_.begin(), before_.end(), 0.0F);
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        if (i + 1 < layers_.size()) {
            layers_[i].synth->render(samples_.data(), frames);
        } else {
            layers_[i].synth->render(mixSamples_.data(), frames);
            std::transform(
                mixSamples_.begin(), mixSamples_.begin() + count, samples_.begin(),
                [](std::int16_t step) { return static_cast<float>(step) / stepsOf16Bits; });
        }
        std::transform(samples_.begin(), samples_.begin() + count, before_.begin(), stem_.begin(),
                       std::minus<>());
        if (!take_(i, stem_.data(), frames))
            return std::nullopt;
        std::swap(before_, samples_);
    }
    return quietFramesAtEnd(mixSamples_.data(), frames);
}

} // namespace velorin::convert
