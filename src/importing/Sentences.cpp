// The account of an import in plain words.
#include "importing/MidiImport.h"

#include "model/Cell.h"
#include "platform/CountedText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace velorin::importing {

namespace {

std::string fixed(double number, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, number);
    return text;
}

using platform::counted;

/// Joins clauses that have a count, with commas.
class Clauses {
public:
    void add(std::int64_t count, const std::string& clause) {
        if (count > 0)
            text_ += (text_.empty() ? "" : ", ") + std::to_string(count) + " " + clause;
    }
    void addCounted(std::int64_t count, const std::string& one) {
        if (count > 0)
            text_ += (text_.empty() ? "" : ", ") + counted(count, one);
    }
    [[nodiscard]] const std::string& text() const { return text_; }

private:
    std::string text_;
};

// A dropped note is never rounded away: 100 % means all.
std::string keptText(const Account& account) {
    const double share = 100.0 * static_cast<double>(account.kept()) /
                         static_cast<double>(std::max<std::int64_t>(account.notes, 1));
    const double floored = std::floor(share * 10.0) / 10.0;
    std::string text = "keeps " + std::to_string(account.kept()) + " of " +
                       counted(account.notes, "note") + " (" + fixed(floored, 1) + " %)";
    Clauses clauses;
    clauses.add(account.crowded, "because more than eight begin at once");
    clauses.add(account.tooFast, "because they repeat faster than the columns");
    clauses.add(account.unknownDrums, "because there is no such drum");
    clauses.add(account.crowdedDrums, "because more than five drums begin at once");
    if (account.dropped() > 0)
        text += "; dropped are " + clauses.text();
    return text;
}

std::string gridText(const Piece& piece) {
    std::string text = "tempo " + std::to_string(piece.score.Tempo);
    if (piece.columnsPerBeat >= 1.0)
        text += ", " + counted(std::lround(piece.columnsPerBeat), "column") + " to a quarter note";
    else if (piece.columnsPerBeat > 0.0)
        text += ", a column to " + std::to_string(std::lround(1.0 / piece.columnsPerBeat)) +
                " quarter notes";
    else
        text += ", columns that do not follow the beat";
    const double percent = (piece.speed - 1.0) * 100.0;
    if (std::abs(percent) >= 0.05)
        text += ", " + fixed(std::abs(percent), 1) + " % " + (percent > 0.0 ? "faster" : "slower") +
                " than the file";
    return text;
}

// "12 moved (9 ms in the median, 31 ms or 0.3 columns at most), 4 shortened"
std::string changesText(const Account& account) {
    Clauses clauses;
    clauses.add(account.moved, "moved (" + fixed(account.medianMoveMs, 0) + " ms in the median, " +
                                   fixed(account.largestMoveMs, 0) + " ms or " +
                                   fixed(account.largestMoveColumns, 1) + " columns at most)");
    clauses.add(account.shortened, "shortened");
    clauses.add(account.merged, "merged with equal notes");
    clauses.add(account.inMarks, "played by chord marks");
    clauses.add(account.continued, "begun again in the next score");
    return clauses.text();
}

std::string leftOutText(const LeftOut& leftOut) {
    Clauses clauses;
    clauses.addCounted(leftOut.silent, "silent note");
    clauses.addCounted(leftOut.bends, "pitch bend");
    clauses.addCounted(leftOut.pressures, "aftertouch message");
    clauses.addCounted(leftOut.controllers, "other controller");
    clauses.addCounted(leftOut.exclusive, "exclusive message");
    return clauses.text();
}

// As the tableaux name the rows.
std::string nameOfRow(int row) {
    if (isMusicRow(row))
        return "Ch " + std::to_string(row + 1);
    const int drums = row < rowWithoutVolume ? 1 : row - rowWithoutVolume + 1;
    return "Percussion " + std::to_string(drums);
}

std::string volumesText(const Piece& piece) {
    std::string text;
    for (int row = 0; row < scoreRows; ++row) {
        if (piece.volumes[row] == 127 || row == rowWithoutVolume)
            continue;
        text += text.empty() ? "these volumes for the Setup Toolbar: " : ", ";
        text += nameOfRow(row) + " " + std::to_string(piece.volumes[row]);
    }
    return text;
}

// "has" for the only score, "score 2 has", "scores 2 to 4 have".
std::string subjectOf(std::size_t first, std::size_t last, std::size_t count) {
    const std::string number = std::to_string(first + 1);
    if (count == 1)
        return "has ";
    if (first == last)
        return "score " + number + " has ";
    return "scores " + number + (last == first + 1 ? " and " : " to ") + std::to_string(last + 1) +
           " have ";
}

/// A clause about each score; neighbours with the same clause share a sentence, and an empty clause
/// makes none.
void addClauses(std::vector<std::string>& sentences, const std::vector<Piece>& pieces,
                std::string (*clauseOf)(const Piece&)) {
    constexpr std::size_t mostSentences = 12;
    std::size_t made = 0;
    for (std::size_t first = 0; first < pieces.size() && made < mostSentences;) {
        const std::string clause = clauseOf(pieces[first]);
        std::size_t last = first;
        while (last + 1 < pieces.size() && clauseOf(pieces[last + 1]) == clause)
            ++last;
        if (!clause.empty()) {
            sentences.push_back(subjectOf(first, last, pieces.size()) + clause);
            ++made;
        }
        first = last + 1;
    }
}

} // namespace

std::vector<std::string> sentencesOf(const Import& import) {
    std::vector<std::string> sentences = noteSentencesOf(import);
    std::vector<std::string> setups;
    addClauses(setups, import.pieces, gridText);
    addClauses(setups, import.pieces, volumesText);
    // After what is kept, which comes first unless the file is damaged.
    sentences.insert(sentences.begin() + (import.isWhole ? 1 : 2), setups.begin(), setups.end());
    return sentences;
}

std::vector<std::string> noteSentencesOf(const Import& import) {
    std::vector<std::string> sentences;
    if (!import.isWhole)
        sentences.emplace_back("is damaged; only the part before the damage is imported");
    sentences.push_back(keptText(import.account));
    if (const std::string changes = changesText(import.account); !changes.empty())
        sentences.push_back("has changed notes: " + changes);
    if (const std::string leftOut = leftOutText(import.leftOut); !leftOut.empty())
        sentences.push_back("loses " + leftOut);
    return sentences;
}

} // namespace velorin::importing
