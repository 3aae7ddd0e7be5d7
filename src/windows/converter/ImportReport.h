// What became of a MIDI file, in plain words.
#pragma once

#include <string>
#include <vector>

namespace velorin::importing {
struct Import;
}

namespace velorin {

enum class ReportMark { kept, moved, leftOut, joined };

struct ReportLine {
    ReportMark mark;
    std::string text; ///< a sentence
};

/// Sentences about an import, in the order of `ReportMark`; at least one. `losesVolumes`: the
/// result is a score file, which has no volumes.
[[nodiscard]] std::vector<ReportLine> importReport(const importing::Import& import,
                                                   bool losesVolumes);

} // namespace velorin
