// A marker says that a run has left something; it goes when the score is safe in its new place.
#include "host/state/HistoryRecovery.h"

#include "host/disk/FileLock.h"
#include "model/Score.h"
#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"

#include <memory>
#include <sstream>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr std::int64_t usPerSecond = 1'000'000;

bool hasContent(const std::string& text) {
    const auto score = std::make_unique<Score>();
    std::istringstream file(text);
    ScoreReader reader(&file, *score);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    reader.readChordMarks();
    return isWorthKeeping(*score);
}

} // namespace

void logUnrecovered(const fs::path& folder, const RecoveryFolder& target,
                    OnceLogger& cannotRecover) {
    cannotRecover.log("The score of an earlier run stays in \"" + folder.string() +
                      "\", since nothing can be written to \"" + target.path().string() +
                      "\". Make room there or allow writing, and start Velorin again.");
}

void recoverRuns(const fs::path& historyFolder, const std::string& ownRun, RecoveryFolder& target,
                 const DamageCallback& damaged, OnceLogger& cannotRecover) {
    for (const Marker& marker : markersIn(historyFolder)) {
        if (marker.run == ownRun)
            continue;
        const Descriptor lock = lockExistingFile(historyFolder / marker.name);
        if (!lock.isOpen())
            continue;
        const auto state = currentStateOf(historyFolder, marker.run, damaged);
        if (state && hasContent(state->text) &&
            !target.add({state->text, static_cast<std::time_t>(state->changedUs / usPerSecond),
                         marker.isUnsaved})) {
            logUnrecovered(historyFolder, target, cannotRecover);
            continue;
        }
        std::error_code ignored; // the next start finds a marker that stays
        fs::remove(historyFolder / marker.name, ignored);
    }
}

} // namespace velorin::host
