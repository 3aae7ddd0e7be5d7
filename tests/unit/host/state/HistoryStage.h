// A state folder and a folder of songs for tests of the history.
#pragma once

#include "host/disk/DurableFile.h"
#include "host/state/HostHistoryStore.h"
#include "model/Score.h"
#include "model/ScoreWriter.h"
#include "support/ScriptedFiles.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace velorin::host::test {

/// The text of a score with one note of this pitch.
inline std::string sheetWith(std::int16_t pitch) {
    const auto score = std::make_unique<Score>();
    score->NoteArray.write(0, 3, pitch);
    score->InstrumentArray.write(0, 3, 5);
    return keptText(*score);
}

inline std::string blankSheet() {
    return keptText(*std::make_unique<Score>());
}

/// A change with a description.
inline platform::HistoryEntry change(const std::string& text, std::int64_t parent = 0) {
    platform::HistoryEntry entry;
    entry.kind = "drawn";
    entry.text = text;
    entry.parent = parent;
    return entry;
}

class HistoryStage : public testing::Test {
protected:
    HistoryStage() { std::filesystem::create_directory(songs); }

    /// A run that ends as by kill -9.
    void cutShort(const std::function<void(HostHistoryStore&)>& run) const {
        const pid_t child = fork();
        if (child == 0) {
            HostHistoryStore store(history);
            run(store);
            _exit(0);
        }
        waitpid(child, nullptr, 0);
    }

    /// A run that ends with this score as its current state, as by kill -9.
    void cutShortWith(const std::string& score) const {
        cutShort([&score](HostHistoryStore& store) { (void)store.add(change("drawn"), score); });
    }

    /// What the next run recovers, by name; `logged` gets its lines on standard error.
    std::vector<std::string> recover() {
        testing::internal::CaptureStderr();
        recovered = HostHistoryStore(history).recoverInto(songs.string());
        logged = testing::internal::GetCapturedStderr();
        std::vector<std::string> names;
        for (const platform::RecoveredFile& file : recovered)
            names.push_back(file.name);
        return names;
    }

    /// The descriptions of the entries that a new run finds; `logged` gets its lines.
    std::vector<std::string> found() {
        testing::internal::CaptureStderr();
        std::vector<std::string> texts;
        for (const platform::HistoryEntry& entry : HostHistoryStore(history).entries())
            texts.push_back(entry.text);
        logged = testing::internal::GetCapturedStderr();
        return texts;
    }

    /// The names in the history's folder that end like this, sorted.
    [[nodiscard]] std::vector<std::string> names(const std::string& ending = "") const {
        std::vector<std::string> all;
        std::error_code missing;
        for (const auto& entry : std::filesystem::directory_iterator(history, missing))
            if (entry.path().string().ends_with(ending))
                all.push_back(entry.path().filename().string());
        std::sort(all.begin(), all.end());
        return all;
    }
    [[nodiscard]] std::filesystem::path onlyPack() const {
        const auto packs = names(".states");
        EXPECT_EQ(packs.size(), 1U);
        return history / packs.at(0);
    }

    [[nodiscard]] std::string song(const std::string& name) const {
        return readFile(songs / name).value_or("no such file");
    }
    [[nodiscard]] static std::string bytesOf(const std::filesystem::path& path) {
        return readFile(path).value_or("no such file");
    }
    static void put(const std::filesystem::path& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    [[nodiscard]] static std::ptrdiff_t filesIn(const std::filesystem::path& path) {
        return std::distance(std::filesystem::directory_iterator(path), {});
    }

    scripted::TemporaryFolder folder;
    std::filesystem::path songs = folder.path() / "Songs";
    std::filesystem::path state = folder.path() / "state" / "velorin";
    std::filesystem::path history = state / "history";
    std::string logged;
    std::vector<platform::RecoveredFile> recovered;
};

} // namespace velorin::host::test
