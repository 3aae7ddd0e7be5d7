// The sentences of the report.
#include "windows/converter/ImportReport.h"

#include "importing/MidiImport.h"
#include "platform/CountedText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace velorin {

namespace {

using importing::Account;
using importing::Import;
using importing::LeftOut;

/// "1,482"
std::string grouped(std::int64_t number) {
    std::string digits = std::to_string(number);
    for (auto at = static_cast<int>(digits.size()) - 3; at > 0; at -= 3)
        digits.insert(static_cast<std::size_t>(at), 1, ',');
    return digits;
}

/// "1 note", "1,482 notes"
std::string groupedCount(std::int64_t count, std::string_view noun) {
    return platform::counted(count, grouped(count), noun);
}

const char* was(std::int64_t count) {
    return count == 1 ? " was " : " were ";
}

/// "a", "a and b", "a, b and c"
std::string listed(const std::vector<std::string>& parts) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i)
        text += (i == 0 ? "" : i + 1 == parts.size() ? " and " : ", ") + parts[i];
    return text;
}

std::string keptSentence(const Account& account) {
    if (account.dropped() == 0)
        return account.notes == 1 ? "The only note was kept."
                                  : "All " + grouped(account.notes) + " notes were kept.";
    return grouped(account.kept()) + " of " + groupedCount(account.notes, "note") +
           was(account.kept()) + "kept.";
}

void addMoved(std::vector<ReportLine>& lines, const Account& account) {
    if (account.moved > 0) {
        const std::string most = grouped(std::llround(account.largestMoveMs)) + " ms";
        lines.push_back({ReportMark::moved, grouped(account.moved) + " of them moved to the next " +
                                                "column, by " + most + " at most."});
    }
    if (account.shortened > 0)
        lines.push_back({ReportMark::moved, grouped(account.shortened) +
                                                (account.shortened == 1 ? " ends" : " end") +
                                                " earlier, since another note begins there."});
}

void addClause(std::vector<std::string>& clauses, std::int64_t count, const std::string& why) {
    if (count > 0)
        clauses.push_back(grouped(count) + " " + why);
}

void addDropped(std::vector<ReportLine>& lines, const Account& account) {
    std::vector<std::string> why;
    addClause(why, account.crowded, "because more than eight begin at once");
    addClause(why, account.tooFast, "because they repeat too fast");
    addClause(why, account.unknownDrums, "because there is no such drum");
    addClause(why, account.crowdedDrums, "because more than five drums begin at once");
    if (!why.empty())
        lines.push_back({ReportMark::leftOut, groupedCount(account.dropped(), "note") +
                                                  was(account.dropped()) +
                                                  "left out: " + listed(why) + "."});
}

void addOthers(std::vector<ReportLine>& lines, const LeftOut& leftOut) {
    std::vector<std::string> what;
    const auto add = [&what](std::int64_t count, const std::string& one) {
        if (count > 0)
            what.push_back(groupedCount(count, one));
    };
    add(leftOut.silent, "silent note");
    add(leftOut.bends, "pitch bend");
    add(leftOut.pressures, "aftertouch message");
    add(leftOut.controllers, "other controller");
    add(leftOut.exclusive, "message for a certain device");
    if (!what.empty())
        lines.push_back({ReportMark::leftOut, "A score has no place for " + listed(what) + "."});
}

bool hasVolumes(const Import& import) {
    const auto& volumes = import.pieces.front().volumes;
    for (int row = 0; row < scoreRows; ++row)
        if (row != rowWithoutVolume && volumes[row] != 127)
            return true;
    return false;
}

void addJoined(std::vector<ReportLine>& lines, const Import& import) {
    const Account& account = import.account;
    if (account.merged > 0)
        lines.push_back({ReportMark::joined, groupedCount(account.merged, "note") +
                                                 (account.merged == 1 ? " sounds" : " sound") +
                                                 " as one with an equal note."});
    if (account.inMarks > 0)
        lines.push_back({ReportMark::joined, groupedCount(account.inMarks, "note") +
                                                 (account.inMarks == 1 ? " is" : " are") +
                                                 " played by the chord marks of other notes."});
    if (import.pieces.size() > 1)
        lines.push_back({ReportMark::joined,
                         "The music is too long for one score, so it became " +
                             grouped(static_cast<std::int64_t>(import.pieces.size())) + "."});
}

} // namespace

std::vector<ReportLine> importReport(const Import& import, bool losesVolumes) {
    std::vector<ReportLine> lines{{ReportMark::kept, keptSentence(import.account)}};
    addMoved(lines, import.account);
    if (!import.isWhole)
        lines.push_back(
            {ReportMark::leftOut, "The file is damaged; what comes after the damage is missing."});
    addDropped(lines, import.account);
    addOthers(lines, import.leftOut);
    if (losesVolumes && hasVolumes(import))
        lines.push_back({ReportMark::leftOut,
                         "A score file has no volumes; all channels play at full volume."});
    addJoined(lines, import);
    return lines;
}

} // namespace velorin
