// What is at a place of a tableau, and the sentences for it.
#include "windows/reader/PlaceWords.h"

#include "drawing/CellGrid.h"
#include "model/NoteTables.h"
#include "studio/Studio.h"
#include "windows/strip/StateWords.h"
#include "windows/texts/ControlTable.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>

namespace velorin {

namespace {

int cellAt(const Studio& studio, int row, int column) {
    return studio.score.NoteArray.read(row, column).value_or(emptyCell);
}

bool isHidden(const Studio& studio, int row) {
    return studio.setup.values.options.TrackHide(row);
}

/// Row 7 is not drawn while a percussion row is the current one.
bool isDrawnMusicRow(const Studio& studio, int row) {
    const bool isLeftOut = row == musicRows - 1 && !isMusicRow(studio.score.CurrentRow);
    return studio.view.RowOpen[row].isSet() && !isLeftOut && !isHidden(studio, row);
}

SpotNote noteAt(const Studio& studio, int row, int column) {
    SpotNote note;
    note.row = row;
    note.isStart = isStart(cellAt(studio, row, column));
    while (isHeld(cellAt(studio, row, column + note.columns)))
        ++note.columns;
    note.instrument = studio.score.InstrumentArray.read(row, column).value_or(0);
    note.isChord = isMusicRow(row) && studio.score.PolyArray.read(row + 1, column + 1) == 1;
    return note;
}

void addMusicNotes(const Studio& studio, const Spot& spot, SpotContent& content) {
    for (int row = 0; row < musicRows; ++row) {
        const int cell = cellAt(studio, row, spot.column);
        if (isDrawnMusicRow(studio, row) && !isEmpty(cell) && pitchOf(cell) == spot.line)
            content.notes.push_back(noteAt(studio, row, spot.column));
    }
}

void addBeats(const Studio& studio, const Spot& spot, int stripLines, SpotContent& content) {
    constexpr int lastDrawnRow = 11;
    for (int row = firstPercussionRow; row <= lastDrawnRow; ++row) {
        const int cell = cellAt(studio, row, spot.column);
        if (isEmpty(cell) || isHidden(studio, row))
            continue;
        const int line = std::min(pitchOf(cell) - studio.view.TopPitch, stripLines - 1);
        if (line == spot.line)
            content.notes.push_back(noteAt(studio, row, spot.column));
    }
}

std::string noteWords(const SpotNote& note, const char* thing) {
    if (!note.isStart)
        return std::string("Held ") + thing;
    std::string words{static_cast<char>(std::toupper(static_cast<unsigned char>(*thing)))};
    words += thing + 1;
    if (isMusicRow(note.row) || note.columns > 1)
        words +=
            " of " + std::to_string(note.columns) + (note.columns == 1 ? " column" : " columns");
    return words;
}

std::string instrumentWords(const SpotNote& note) {
    return instrumentName(note.instrument).toStdString();
}

std::string musicContent(const std::vector<SpotNote>& notes) {
    const SpotNote& first = notes.front();
    std::string words = noteWords(first, "note") + ", " + spokenRow(first.row);
    if (first.isStart)
        words += ", " + instrumentWords(first);
    if (first.isStart && first.isChord)
        words += ", chord";
    words += ".";
    for (std::size_t i = 1; i < notes.size(); ++i)
        words += (i == 1 ? " Also " : ", ") + spokenRow(notes[i].row);
    return notes.size() > 1 ? words + "." : words;
}

std::string stripContent(const std::vector<SpotNote>& notes) {
    std::string words =
        noteWords(notes.front(), "beat") + ", " + instrumentWords(notes.front()) + ".";
    for (std::size_t i = 1; i < notes.size(); ++i)
        words += (i == 1 ? " Also " : ", ") + instrumentWords(notes[i]);
    return notes.size() > 1 ? words + "." : words;
}

std::string contentWords(Tableau tableau, const SpotContent& content) {
    if (!content.isInScore)
        return "Outside the score.";
    if (tableau == Tableau::lanes)
        return content.isMarked ? "Marked." : "Not marked.";
    if (content.notes.empty())
        return "Empty.";
    return tableau == Tableau::strip ? stripContent(content.notes) : musicContent(content.notes);
}

int barOf(int column) {
    return column / columnsOfBar + 1;
}

std::string columnOnly(int column) {
    return "column " + std::to_string(column + 1);
}

/// The parts that are not empty, with commas, as a sentence.
std::string sentence(std::initializer_list<std::string> parts) {
    std::string words;
    for (const std::string& part : parts) {
        if (!part.empty())
            words += (words.empty() ? "" : ", ") + part;
    }
    return words.empty() ? words : words + ". ";
}

} // namespace

SpotContent contentOf(const Studio& studio, const Spot& spot, int stripLines) {
    SpotContent content;
    content.isInScore = spot.column >= 0 && spot.column <= lastShownColumn;
    switch (spot.tableau) {
    case Tableau::music:
        content.isInScore = content.isInScore && spot.line >= 0 && spot.line <= lastPitch;
        addMusicNotes(studio, spot, content);
        break;
    case Tableau::strip:
        addBeats(studio, spot, stripLines, content);
        break;
    case Tableau::lanes:
        content.isMarked = studio.score.PolyArray.read(spot.line + 1, spot.column + 1) == 1;
        break;
    case Tableau::numbers:
        break;
    }
    const int current = studio.score.CurrentRow;
    std::stable_partition(content.notes.begin(), content.notes.end(),
                          [current](const SpotNote& note) { return note.row == current; });
    return content;
}

std::string spokenNote(int pitchIndex) {
    const auto name = NoteName(pitchIndex);
    if (!name)
        return {};
    const std::size_t letter = name->find_first_not_of("0123456789");
    std::string words = name->substr(letter, 1);
    if (name->back() == '#')
        words += " sharp";
    return words + " " + name->substr(0, letter);
}

std::string spokenRow(int row) {
    std::string name = rowName(row);
    name.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(name.front())));
    const std::size_t channel = name.find("Channel");
    if (channel != std::string::npos)
        name[channel] = 'c';
    return name;
}

std::string lineWords(Tableau tableau, int line) {
    if (tableau == Tableau::lanes)
        return "channel " + std::to_string(line + 1);
    if (tableau == Tableau::strip)
        return "line " + std::to_string(line + 1);
    const std::string note = spokenNote(line);
    return note.empty() ? "no note" : note;
}

std::string columnWords(int column) {
    return columnOnly(column) + ", bar " + std::to_string(barOf(column));
}

std::string placeWords(const Spot& spot, const SpotContent& content) {
    const std::string line = lineWords(spot.tableau, spot.line);
    const std::string what = contentWords(spot.tableau, content);
    if (spot.tableau == Tableau::music)
        return sentence({line, columnWords(spot.column)}) + what;
    return sentence({spot.tableau == Tableau::strip ? "Drums" : "Chords", line,
                     columnOnly(spot.column)}) +
           what;
}

std::string movedWords(const Spot& from, const Spot& spot, const SpotContent& content) {
    if (from.tableau != spot.tableau || from == spot)
        return placeWords(spot, content);
    const bool isOtherBar =
        spot.tableau == Tableau::music && barOf(from.column) != barOf(spot.column);
    return sentence({from.line != spot.line ? lineWords(spot.tableau, spot.line) : std::string(),
                     from.column != spot.column ? columnOnly(spot.column) : std::string(),
                     isOtherBar ? "bar " + std::to_string(barOf(spot.column)) : std::string()}) +
           contentWords(spot.tableau, content);
}

} // namespace velorin
