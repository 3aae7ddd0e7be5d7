// Writes keys into the score step by step: where, on which rows, and with which view.
#include "entry/StepEntry.h"

#include "playback/NoteSounding.h"
#include "studio/MainDesk.h"
#include "studio/Studio.h"

#include <algorithm>

namespace velorin {

namespace {

/// Of a strip that may be one line high.
constexpr int beatLine = 0;

/// What was heard already makes no sound when it is drawn.
class Muted {
public:
    explicit Muted(NoteSounding& sounding) : sounding_(sounding) { sounding_.isMuted = true; }
    ~Muted() { sounding_.isMuted = false; }
    Muted(const Muted&) = delete;
    Muted& operator=(const Muted&) = delete;

private:
    NoteSounding& sounding_;
};

/// The two number the same keys, from the bottom and from the top.
int pitchOfNote(int key) {
    return lastPitch - key;
}

} // namespace

void StepEntry::setLength(int columns) {
    if (columns >= 1 && columns <= longestStep)
        length_ = columns;
}

StepResult StepEntry::check() const {
    const Run& run = studio_.run;
    if (run.IsPlaying.isSet())
        return StepResult::playing;
    if (!pen_.isReady())
        return StepResult::busy;
    return run.EditMode == editMode::draw ? StepResult::done : StepResult::notDrawing;
}

/// For a step of so many columns at the marker, on the current row.
StepResult StepEntry::checkRow(int columns) const {
    const Score& score = studio_.score;
    if (!isMusicRow(score.CurrentRow)) {
        if (!isPercussion(sounding_.PercussionChoice))
            return StepResult::noDrum;
        if (!pen_.isStripShown())
            return StepResult::noStrip;
    }
    if (columns > studio_.view.VisibleColumns + 1)
        return StepResult::tooNarrow;
    const int column = score.StartColumn;
    return column >= 0 && column + columns - 1 <= lastShownColumn ? StepResult::done
                                                                  : StepResult::atEnd;
}

// Scrolling yields, and what runs meanwhile may start the song or choose another row.
StepResult StepEntry::write(const std::vector<int>& keys) {
    unwritten_ = 0;
    const bool isBeat = !isMusicRow(studio_.score.CurrentRow);
    const int columns = isBeat ? 1 : length_;
    for (const bool isInSight : {false, true}) {
        StepResult result = check();
        if (result == StepResult::done)
            result = checkRow(columns);
        if (result != StepResult::done)
            return result;
        if (!isInSight)
            bringIntoView(studio_.score.StartColumn, studio_.score.StartColumn + columns - 1);
    }
    const int column = studio_.score.StartColumn;
    const int last = column + columns - 1;
    if (isBeat != !isMusicRow(studio_.score.CurrentRow) || !isInView(column, last))
        return StepResult::busy;
    {
        const Muted muted(sounding_);
        if (isBeat)
            pen_.drawBeat(beatLine, column - studio_.view.FirstColumn);
        else
            writeChord(keys, column, last);
    }
    setMarker(std::min(column + length_, lastGridColumn));
    return unwritten_ > 0 ? StepResult::incomplete : StepResult::done;
}

StepResult StepEntry::rest() {
    const StepResult result = check();
    if (result != StepResult::done)
        return result;
    if (studio_.score.StartColumn + length_ > lastShownColumn)
        return StepResult::atEnd;
    setMarker(studio_.score.StartColumn + length_);
    return StepResult::done;
}

StepResult StepEntry::stepBack() {
    const StepResult result = check();
    if (result != StepResult::done)
        return result;
    if (studio_.score.StartColumn <= 0)
        return StepResult::atStart;
    setMarker(std::max(studio_.score.StartColumn - length_, 0));
    return StepResult::done;
}

void StepEntry::setMarker(int column) {
    studio_.score.StartColumn = static_cast<std::int16_t>(std::clamp(column, 0, lastGridColumn));
    const int shown = std::min<int>(studio_.score.StartColumn, lastShownColumn);
    bringIntoView(shown, shown);
    studio_.desk->DrawNoteArray();
}

bool StepEntry::isInView(int column, int last) const {
    const View& view = studio_.view;
    return column >= view.FirstColumn && last <= view.FirstColumn + view.VisibleColumns;
}

/// At the end of the grid the view cannot scroll until the last columns are seen whole. They can be
/// written all the same, as by a mouse that is dragged beyond the edge.
void StepEntry::bringIntoView(int column, int last) {
    const int first = studio_.view.FirstColumn;
    const int seen = pen_.seen().columns;
    if (column >= first && last < first + seen)
        return;
    studio_.desk->moveViewTo(column + seen / 4, -1); // the middle; a quarter stays before the step
    studio_.desk->DrawNoteArray();
    studio_.desk->DrawBeatArray();
}

/// In the middle, so that the view moves seldom.
void StepEntry::bringPitchesIntoView(int top, int bottom) {
    const SeenCells seen = pen_.seen();
    const int highest = studio_.view.TopPitch;
    if (top < highest + seen.firstLine || bottom > highest + seen.lastLine)
        studio_.desk->moveViewTo(-1, (top + bottom) / 2);
}

/// Also a row with a chord mark there is not free, and one whose notes sound as chords while those
/// of the current row do not: its note would be another one.
bool StepEntry::isFree(int row, int column, int last) {
    Score& score = studio_.score;
    Setup& setup = studio_.setup;
    if (setup.TrackHide(row) || setup.Ch(row) != setup.Ch(score.CurrentRow) ||
        score.PolyArray.read(row + 1, column + 1) == 1)
        return false;
    for (int cell = column; cell <= last; ++cell) {
        if (!isEmpty(score.NoteArray.read(row, cell).value_or(emptyCell)))
            return false;
    }
    return true;
}

/// The other music rows that can take a note, the next one first.
std::vector<int> StepEntry::freeRows(int column, int last) {
    std::vector<int> rows;
    for (int next = 1; next < musicRows; ++next) {
        const int row = (studio_.score.CurrentRow + next) % musicRows;
        if (isFree(row, column, last))
            rows.push_back(row);
    }
    return rows;
}

// The current row comes last, so what the handlers leave behind is as after its note alone.
void StepEntry::writeChord(const std::vector<int>& keys, int column, int last) {
    if (keys.empty())
        return;
    bringPitchesIntoView(pitchOfNote(keys.front()), pitchOfNote(keys.back()));
    const std::vector<int> rows = freeRows(column, last);
    for (std::size_t i = 1; i < keys.size(); ++i) {
        if (i <= rows.size())
            writeOn(rows[i - 1], pitchOfNote(keys[i]), column, last);
        else
            ++unwritten_;
    }
    drawNote(pitchOfNote(keys.front()), column, last);
}

// The row is drawn from now on, as after the user has chosen it. What its next note by the mouse
// gets stays as it was.
void StepEntry::writeOn(int row, int pitch, int column, int last) {
    Score& score = studio_.score;
    const std::int16_t current = score.CurrentRow;
    const std::int16_t instrument = score.RowInstrument[row];
    studio_.view.RowOpen[row] = flagSet;
    score.RowInstrument[row] = score.RowInstrument[current];
    score.CurrentRow = static_cast<std::int16_t>(row);
    drawNote(pitch, column, last);
    score.CurrentRow = current;
    score.RowInstrument[row] = instrument;
}

// Of a chord that is wider than the view, each note is brought into view for itself.
void StepEntry::drawNote(int pitch, int column, int last) {
    bringPitchesIntoView(pitch, pitch);
    const View& view = studio_.view;
    pen_.drawNote(pitch - view.TopPitch, column - view.FirstColumn, last - view.FirstColumn);
}

} // namespace velorin
