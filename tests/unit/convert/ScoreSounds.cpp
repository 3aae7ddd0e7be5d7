// Writes scores and reads sounds.
#include "ScoreSounds.h"

#include "convert/Conversion.h"
#include "host/synth/SoundFonts.h"

#include <gtest/gtest.h>

#include <sndfile.h>

#include <algorithm>
#include <array>

namespace velorin::convert::test {

std::string scoreOf(int tempo, const std::vector<Note>& notes) {
    constexpr std::size_t rows = 13;
    std::array<std::vector<int>, rows> cells;
    std::array<std::vector<int>, rows> instruments;
    for (const Note& note : notes) {
        auto& row = cells.at(static_cast<std::size_t>(note.row));
        auto& sounds = instruments.at(static_cast<std::size_t>(note.row));
        const auto end = static_cast<std::size_t>(note.column + note.length);
        row.resize(std::max(row.size(), end), -1);
        sounds.resize(row.size(), 0);
        for (int i = 0; i < note.length; ++i) {
            const auto at = static_cast<std::size_t>(note.column + i);
            row[at] = i == 0 ? note.pitch : 1000 + note.pitch;
            sounds[at] = note.instrument;
        }
    }
    const auto line = [](const std::vector<int>& values, int rest) {
        std::string text;
        for (const int value : values)
            text += std::to_string(value) + ",";
        return text + std::to_string(rest) + "\r\n";
    };
    std::string text;
    for (std::size_t row = 0; row < rows; ++row)
        text += line(cells[row], -1) + line(instruments[row], 0);
    return text + " " + std::to_string(tempo) + " \r\n0,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
}

double Sound::seconds() const {
    return static_cast<double>(samples.size()) / 2.0 / rateHz;
}

double Sound::power(double from, double to) const {
    const auto at = [this](double second) {
        return std::min(samples.size(), 2 * static_cast<std::size_t>(second * rateHz));
    };
    double sum = 0.0;
    for (std::size_t i = at(from); i < at(to); ++i)
        sum += samples[i] * samples[i];
    return at(to) > at(from) ? sum / static_cast<double>(at(to) - at(from)) : 0.0;
}

Sound readSound(const std::filesystem::path& file) {
    SF_INFO info{};
    SNDFILE* const opened = sf_open(file.string().c_str(), SFM_READ, &info);
    if (opened == nullptr) {
        ADD_FAILURE() << "no sound " << file;
        return {};
    }
    std::vector<int> values(2 * static_cast<std::size_t>(info.frames));
    EXPECT_EQ(sf_readf_int(opened, values.data(), info.frames), info.frames);
    sf_close(opened);
    Sound sound{info.samplerate, {}};
    for (const int value : values)
        sound.samples.push_back(value / 65536.0);
    return sound;
}

Sound soundOf(const Task& task, const Options& options) {
    const auto made = convert(task, options, {});
    EXPECT_TRUE(made) << made.reason();
    return readSound(task.target);
}

Options usualOptions() {
    Options options;
    const auto fonts = host::findSoundFonts(host::soundFontFolders("", ""));
    EXPECT_FALSE(fonts.empty()) << "these tests need a SoundFont (timgm6mb-soundfont)";
    if (!fonts.empty())
        options.soundFont = fonts.front().path;
    return options;
}

} // namespace velorin::convert::test
