// Puts the sound, the pictures and the score of a song into one file.
#include "convert/PageConversion.h"

#include "convert/ColumnTimes.h"
#include "convert/LoadedScore.h"
#include "convert/OutputFile.h"
#include "convert/PlayedMidi.h"
#include "convert/page/PageText.h"
#include "convert/page/SongPage.h"
#include "model/ScoreWriter.h"

#include <fstream>

namespace velorin::convert {

namespace fs = std::filesystem;
using platform::Failure;
using platform::Result;

namespace {

Failure aboutFile(const fs::path& file, const std::string& what) {
    return {file.string() + " " + what};
}

// A score that is in no file has no name of its own.
std::string titleOf(const Task& task) {
    const fs::path named = task.text.empty() ? fs::path(task.source) : task.target;
    return named.stem().string();
}

/// The sheet shows what sounds. The score to download has all rows.
void clearHiddenRows(Studio& studio) {
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; studio.setup.TrackHide(row) && column < scoreColumns; ++column)
            studio.score.NoteArray.write(row, column, emptyCell);
    }
}

Result<SongPageParts> makeParts(const Task& task) {
    KeptMidi midi;
    LoadedScore score(midi);
    if (const auto opened = score.open(task.source, task.text, task.setup.get()); !opened)
        return aboutFile(task.source, opened.reason());
    SongPage page;
    page.title = titleOf(task);
    page.scoreText = exactText(score.studio.score);
    page.columnTimes = playColumns(score);
    clearHiddenRows(score.studio);
    return makeSongPage(page, score.studio.score);
}

/// Appends the bytes of a file in base64.
Result<void> appendSound(OutputFile& page, const fs::path& sound) {
    constexpr std::size_t pieceBytes = 3UL << 18U; // of whole groups of base64
    std::ifstream in(sound, std::ios::binary);
    std::string piece(pieceBytes, '\0');
    while (in) {
        in.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        const auto got = static_cast<std::size_t>(in.gcount());
        if (auto written = page.write(base64({piece.data(), got})); !written)
            return written;
    }
    return in.eof() ? Result<void>() : Failure{"cannot be made: its sound cannot be read again"};
}

Result<void> writePage(OutputFile& page, const SongPageParts& parts, const fs::path& sound) {
    if (auto begun = page.begin(); !begun)
        return begun;
    if (auto written = page.write(parts.beforeSound); !written)
        return written;
    if (auto written = appendSound(page, sound); !written)
        return written;
    if (auto written = page.write(parts.afterSound); !written)
        return written;
    return page.finish();
}

} // namespace

Result<void> makePage(const Task& task, const Options& options,
                      const ConversionCallbacks& callbacks) {
    auto parts = makeParts(task);
    if (!parts)
        return parts.failure();
    OutputFile sound(task.target);
    Task soundTask = task;
    soundTask.kind = Kind::mp3;
    if (auto rendered = renderSound(sound, soundTask, options, callbacks); !rendered)
        return rendered;
    OutputFile page(task.target, task.existing);
    if (const auto written = writePage(page, *parts, sound.part()); !written)
        return aboutFile(task.target, written.reason());
    return {};
}

} // namespace velorin::convert
