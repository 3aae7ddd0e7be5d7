// Renders all rows of a score apart from each other, in one pass.
#pragma once

#include "convert/Renderer.h"
#include "model/RowArray.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace velorin::convert {

/// Gets `frames` frames of the stem `index`, left and right in turn; full scale is 1.0. Returns
/// false to stop rendering.
using TakeStem = std::function<bool(std::size_t index, const float* stereo, int frames)>;

/// A stem is what its row adds to the rows before it. The last row adds what is missing to the mix,
/// its dither included. So the sum of all stems is the mix, whatever the synthesizer does to notes
/// that sound together.
class StemRenderer final : public Renderer {
public:
    /// Must not return null.
    using MakeSynth = std::function<std::unique_ptr<host::Synth>()>;

    /// `channels`: for each row the channels on which it begins notes, see `channelsOfRows`. There
    /// is a stem for each row that has any.
    StemRenderer(const RowArray<std::uint16_t>& channels, const MakeSynth& makeSynth,
                 TakeStem take);

    /// Tells whose messages come. Must be called before the first one. The row may change at any
    /// time; it must live longer.
    void setRow(const std::int16_t& row) { row_ = &row; }

    /// The row of each stem, [0, 13), ascending.
    [[nodiscard]] std::vector<int> rows() const;

    void send(const host::ShortMessage& message) override;
    void reset() override;
    std::optional<int> render(int frames) override;

private:
    /// A synthesizer that plays a row and all rows before it.
    struct Layer {
        int row = 0;
        std::uint16_t channels = 0; ///< a bit for each MIDI channel of these rows
        std::unique_ptr<host::Synth> synth;
    };

    std::vector<Layer> layers_; ///< the last one is the mix
    TakeStem take_;
    const std::int16_t* row_ = nullptr;
    std::vector<std::int16_t> mixSamples_;
    std::vector<float> before_; ///< the layer before
    std::vector<float> samples_;
    std::vector<float> stem_;
};

} // namespace velorin::convert
