// Songs in a folder of the test, for the converter.
#pragma once

#include "model/Score.h"
#include "model/ScoreWriter.h"
#include "support/ScriptedFiles.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace velorin {

namespace fs = std::filesystem;

// Rows in the table of kinds.
inline constexpr int wav = 1;
inline constexpr int midi = 2;

/// Needs an application object.
struct ConverterStage {
    /// Writes a score of four notes. `tempo`: a column lasts 12 / tempo seconds.
    fs::path song(const std::string& name, int tempo = 100, int step = 4) const {
        const auto score = std::make_unique<Score>();
        score->Tempo = static_cast<std::int16_t>(tempo);
        for (int i = 0; i < 4; ++i) {
            score->NoteArray.write(0, step * i, static_cast<std::int16_t>(50 + i));
            score->InstrumentArray.write(0, step * i, 24);
        }
        const fs::path file = folder / name;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << exactText(*score);
        return file;
    }
    /// An hour of sound, so that a test can stop it.
    [[nodiscard]] fs::path longSong(const std::string& name) const { return song(name, 1, 100); }

    /// Waits for an event at a time; the work in threads causes them.
    static void processUntil(const std::function<bool()>& isDone) {
        while (!isDone())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    /// All files in the folder of the test, also hidden ones.
    [[nodiscard]] std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            if (entry.is_regular_file())
                names.push_back(entry.path().lexically_relative(folder).string());
        std::sort(names.begin(), names.end());
        return names;
    }
    /// A file is being written.
    [[nodiscard]] bool hasPart() const {
        const auto names = files();
        return std::any_of(names.begin(), names.end(),
                           [](const std::string& name) { return name.ends_with(".part"); });
    }
    [[nodiscard]] bool begins(const char* name, const std::string& head) const {
        std::ifstream in(folder / name, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        return bytes.starts_with(head);
    }

    scripted::TemporaryFolder own;
    fs::path folder = own.path();
};

} // namespace velorin
