// What a thread of the converter's window does with one file.
#pragma once

#include "windows/converter/ImportReport.h"
#include "windows/converter/Workshop.h"
#include "windows/making/ConversionJobs.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace velorin {

struct FileOrder {
    std::filesystem::path source;
    std::filesystem::path folder; ///< of the new files; created if it is missing
    std::size_t kind = 0;         ///< of `converterKinds`
    bool isAlone = false;         ///< it may use another core
};

/// What the thread reports. The members that are no atomics belong to it until its work has ended.
struct FileResult {
    std::atomic<double> seconds{0.0};        ///< playing time; 0 while it is unknown
    std::vector<std::filesystem::path> made; ///< one, or several scores of a long MIDI file
    std::vector<ReportLine> report;          ///< empty unless the source is a MIDI file
    double bytes = 0.0;                      ///< of all new files
    std::int64_t startedNs = 0;              ///< of the steady clock
};

/// Makes the files. None of them replaces another file. A failure, also by a stop, leaves none of
/// them; its reason is a sentence for the window.
[[nodiscard]] ConversionJobs::Work fileWork(const FileOrder& order,
                                            std::shared_ptr<Workshop> workshop,
                                            std::shared_ptr<FileResult> result);

} // namespace velorin
