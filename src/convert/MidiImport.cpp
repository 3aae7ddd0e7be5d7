// Reads the file, imports it, and writes the scores.
#include "convert/MidiImport.h"

#include "convert/Batch.h"
#include "convert/OutputFile.h"
#include "convert/SoundLength.h"
#include "host/midi/MidiFile.h"
#include "midifile/FileReader.h"
#include "model/ScoreWriter.h"
#include "platform/PathLookup.h"

#include <algorithm>
#include <cstdio>
#include <memory>

namespace velorin::convert {

namespace fs = std::filesystem;
using importing::Account;
using importing::Import;
using importing::Piece;
using platform::Failure;
using platform::Result;

namespace {

/// A JSON object, member by member.
class JsonObject {
public:
    JsonObject& add(const char* name, const std::string& value) {
        text_ += text_.empty() ? "{" : ", ";
        text_ += jsonText(name) + ": " + value;
        return *this;
    }
    JsonObject& add(const char* name, std::int64_t value) {
        return add(name, std::to_string(value));
    }
    JsonObject& add(const char* name, double value) {
        char text[40];
        std::snprintf(text, sizeof text, "%.3f", value);
        return add(name, std::string(text));
    }
    [[nodiscard]] std::string text() const { return text_ + "}"; }

private:
    std::string text_;
};

JsonObject accountObject(const Account& account) {
    JsonObject because;
    because.add("crowded", account.crowded)
        .add("too_fast", account.tooFast)
        .add("unknown_drum", account.unknownDrums)
        .add("crowded_drums", account.crowdedDrums);
    JsonObject object;
    object.add("notes", account.notes)
        .add("kept", account.kept())
        .add("exact", account.exact)
        .add("moved", account.moved)
        .add("median_move_ms", account.medianMoveMs)
        .add("largest_move_ms", account.largestMoveMs)
        .add("largest_move_columns", account.largestMoveColumns)
        .add("shortened", account.shortened)
        .add("merged", account.merged)
        .add("in_chord_marks", account.inMarks)
        .add("continued", account.continued)
        .add("dropped", account.dropped())
        .add("dropped_because", because.text());
    return object;
}

/// Texts as a JSON array.
std::string arrayOf(const std::vector<std::string>& texts) {
    std::string array("[");
    for (const std::string& text : texts) {
        array += array.size() > 1 ? ", " : "";
        array += text;
    }
    return array + "]";
}

std::string scoreObject(const Piece& piece, const fs::path& target) {
    std::vector<std::string> volumes;
    volumes.reserve(scoreRows);
    for (int row = 0; row < scoreRows; ++row)
        volumes.push_back(std::to_string(piece.volumes[row]));
    return accountObject(piece.account)
        .add("target", jsonText(target.string()))
        .add("tempo", std::int64_t{piece.score.Tempo})
        .add("columns_per_quarter", piece.columnsPerBeat)
        .add("speed", piece.speed)
        .add("from_seconds", piece.fromSeconds)
        .add("volumes", arrayOf(volumes))
        .text();
}

std::string objectOf(const Import& import, const std::vector<fs::path>& targets) {
    JsonObject leftOut;
    leftOut.add("silent_notes", import.leftOut.silent)
        .add("bends", import.leftOut.bends)
        .add("pressures", import.leftOut.pressures)
        .add("controllers", import.leftOut.controllers)
        .add("exclusive", import.leftOut.exclusive);
    std::vector<std::string> scores;
    for (std::size_t i = 0; i < targets.size(); ++i)
        scores.push_back(scoreObject(import.pieces[i], targets[i]));
    return accountObject(import.account)
        .add("left_out", leftOut.text())
        .add("scores", arrayOf(scores))
        .text();
}

// All are written under temporary names first, so a full disk leaves nothing.
Result<void> write(const Import& import, const std::vector<fs::path>& targets) {
    std::vector<std::unique_ptr<OutputFile>> files;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        files.push_back(std::make_unique<OutputFile>(targets[i]));
        auto written = files.back()->begin();
        if (written)
            written = files.back()->write(exactText(import.pieces[i].score));
        if (!written)
            return Failure{targets[i].string() + " " + written.reason()};
    }
    for (std::size_t i = 0; i < targets.size(); ++i) {
        if (const auto finished = files[i]->finish(); !finished)
            return Failure{targets[i].string() + " " + finished.reason()};
    }
    return {};
}

// A score beside the MIDI file may be the one that the MIDI file was made from.
Result<void> checkScore(const fs::path& target, const Options& options) {
    std::error_code failed;
    if (!options.mayReplaceScore && !options.makesFolder && fs::exists(target, failed))
        return Failure{target.string() +
                       " is there already; name the output with -o, or use --out"};
    return checkTarget(target);
}

} // namespace

Result<Import> readImport(const std::string& source, int maxMinutes) {
    const auto bytes = host::readMidiBytes(platform::resolve(source));
    const auto songs = bytes ? midifile::readAll(*bytes) : std::vector<midifile::MidiData>();
    if (songs.empty())
        return Failure{source + " is not a MIDI file"};
    auto import = importing::importMidi(songs, {maxMinutes * 60.0});
    if (import)
        return import;
    const bool isTooLong = import.reason().starts_with("is too long");
    return Failure{
        source + " " + import.reason() +
        (isTooLong ? "; --most-minutes allows " + std::to_string(maxMinutes) : std::string())};
}

std::vector<fs::path> targetsOf(const Task& task, const Options& options, std::size_t count) {
    std::vector<fs::path> targets{task.target};
    const auto isOthers = [&](const fs::path& name) {
        return std::any_of(options.tasks.begin(), options.tasks.end(), [&](const Task& other) {
            return other.target.lexically_normal() == name.lexically_normal();
        });
    };
    for (int number = 2; targets.size() < count; ++number) {
        fs::path name = task.target;
        name.replace_filename(task.target.stem().string() + "-" + std::to_string(number) +
                              task.target.extension().string());
        if (!isOthers(name))
            targets.push_back(name);
    }
    return targets;
}

Result<void> importMidiFile(const Task& task, const Options& options,
                            const ConversionCallbacks& callbacks) {
    auto import = readImport(task.source, options.maxMinutes);
    if (!import)
        return import.failure();
    const auto targets = targetsOf(task, options, import->pieces.size());
    for (const fs::path& target : targets) {
        if (auto checked = checkScore(target, options); !checked)
            return checked;
    }
    if (auto written = write(*import, targets); !written)
        return written;
    if (callbacks.warning) {
        for (const std::string& sentence : importing::sentencesOf(*import))
            callbacks.warning(task.source + " " + sentence);
        if (targets.size() > 1)
            callbacks.warning(task.source + " became " + std::to_string(targets.size()) +
                              " scores: " + targets.front().string() + " to " +
                              targets.back().filename().string());
    }
    if (callbacks.details)
        callbacks.details("\"import\": " + objectOf(*import, targets));
    return {};
}

} // namespace velorin::convert
