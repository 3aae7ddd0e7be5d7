// Recovers the current states of runs that are over.
#pragma once

#include "host/process/OnceLogger.h"
#include "host/state/HistoryReader.h"
#include "host/state/RecoveryFolder.h"

#include <filesystem>
#include <string>

namespace velorin::host {

/// Recovers the current state of each run with a marker, except `ownRun` and runs that are still
/// going on, and removes the marker. Their states stay in the history. Sheets without notes and
/// chord marks are not recovered. What cannot be written to the target keeps its marker, and is
/// logged.
void recoverRuns(const std::filesystem::path& historyFolder, const std::string& ownRun,
                 RecoveryFolder& target, const DamageCallback& damaged, OnceLogger& cannotRecover);

/// Logs that the score of a run stays in `folder`.
void logUnrecovered(const std::filesystem::path& folder, const RecoveryFolder& target,
                    OnceLogger& cannotRecover);

} // namespace velorin::host
