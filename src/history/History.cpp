// Notices changes of the score, keeps its states, and puts them back.
#include "history/History.h"

#include "history/Change.h"
#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"
#include "studio/ScoreFiles.h"
#include "studio/Studio.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace velorin {

namespace {

/// Also true for scores that differ only in the instrument of a row that was just selected.
bool hasSameContent(const Score& one, const Score& other) {
    return one.NoteArray == other.NoteArray && one.InstrumentArray == other.InstrumentArray &&
           one.PolyArray == other.PolyArray && one.Tempo == other.Tempo;
}

void readText(const std::string& text, Score& score) {
    score.ClearNoteArrays();
    score.ClearPolies();
    std::istringstream file(text);
    ScoreReader reader(&file, score);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    reader.readChordMarks();
}

} // namespace

History::History(Studio& studio, ScoreFiles& files, platform::HistoryStore* store)
    : studio_(studio), files_(files), store_(store != nullptr ? *store : memory_) {}

void History::begin() {
    isActive_ = true;
    startText_ = exactText(studio_.score);
    last_ = studio_.score;
    savesSeen_ = studio_.saved.saves();
    opensSeen_ = studio_.saved.opens();
    takeStock();
}

History::Stamp History::stamp() const {
    const Score& score = studio_.score;
    return {{score.NoteArray.changes(), score.InstrumentArray.changes(), score.PolyArray.changes(),
             studio_.saved.saves(), studio_.saved.opens()},
            score.Tempo,
            score.RowInstrument,
            score.CurrentFileName};
}

void History::changeFinished() {
    if (!isActive_ || isStepping_ || stamp() == seen_)
        return;
    if (hasChanged())
        addState();
    if (studio_.saved.saves() != savesSeen_)
        addSavedMoment();
    takeStock();
    changed();
}

/// Selecting a row gives it the instrument that the list shows. Such a change alone belongs to the
/// state before.
bool History::hasChanged() {
    const Score& score = studio_.score;
    if (!hasSameContent(score, last_) || studio_.saved.opens() != opensSeen_)
        return true;
    const bool isOtherRow = score.CurrentRow != last_.CurrentRow;
    const bool isOtherInstrument = score.RowInstrument != last_.RowInstrument;
    return isOtherInstrument && !isOtherRow;
}

void History::addState() {
    const Score& score = studio_.score;
    ChangeNames names{last_.CurrentFileName, score.CurrentFileName, std::nullopt};
    if (studio_.saved.opens() != opensSeen_)
        names.opened = studio_.saved.openedName();
    const Change change = describeChange(last_, score, names);
    const bool wasUnsaved = isUnsaved_;
    platform::HistoryEntry entry;
    entry.parent = tree_.current();
    entry.kind = change.kind;
    entry.text = change.text;
    entry.name = score.CurrentFileName;
    entry.isSaved = names.opened && studio_.saved.isSaved(score);
    const StateId state = add(std::move(entry), exactText(score));
    tree_.add(state, {names.before, names.after});
    if (wasUnsaved && change.replacesScore)
        reportReplaced();
}

void History::addSavedMoment() {
    platform::HistoryEntry entry;
    entry.state = tree_.current();
    entry.parent = tree_.current();
    entry.kind = changeKind::saved;
    entry.text = "Saved";
    entry.name = studio_.score.CurrentFileName;
    entry.isSaved = true;
    if (entry.state != 0)
        static_cast<void>(add(std::move(entry), {}));
}

StateId History::add(platform::HistoryEntry entry, const std::string& text) {
    const StateId id = store_.add(entry, text);
    entry.id = id;
    if (!text.empty())
        entry.state = id;
    entries_.push_back(std::move(entry));
    return id;
}

void History::reportReplaced() {
    if (std::exchange(hasReported_, true))
        return;
    if (onReplacedUnsaved)
        onReplacedUnsaved();
}

/// The score as it is now is the one that was seen.
void History::takeStock() {
    last_ = studio_.score;
    seen_ = stamp();
    savesSeen_ = studio_.saved.saves();
    opensSeen_ = studio_.saved.opens();
    isUnsaved_ = isWorthKeeping(last_) && !studio_.saved.isSaved(last_);
}

void History::changed() {
    ++revision_;
    if (onChanged)
        onChanged();
}

bool History::canStep() const {
    const Run& run = studio_.run;
    return isActive_ && !isStepping_ && !run.IsPlaying.isSet() && !run.PlayingSelection.isSet() &&
           !run.LoadingMain.isSet() && !studio_.drag.MouseHeld.isSet();
}

HistoryStep History::undo() {
    if (!canStep())
        return HistoryStep::locked;
    changeFinished();
    return tree_.canUndo() ? putBack(tree_.undoTarget()) : HistoryStep::atEnd;
}

HistoryStep History::redo() {
    if (!canStep())
        return HistoryStep::locked;
    changeFinished();
    return tree_.canRedo() ? putBack(tree_.redoTarget()) : HistoryStep::atEnd;
}

HistoryStep History::goTo(StateId state) {
    if (!canStep())
        return HistoryStep::locked;
    changeFinished();
    if (state == tree_.current())
        return HistoryStep::done;
    return tree_.isOnBranch(state) ? putBack(state) : putBackAsNew(state);
}

HistoryStep History::putBack(StateId state) {
    if (!show(state))
        return HistoryStep::lost;
    if (const std::string* name = tree_.goTo(state))
        studio_.score.CurrentFileName = *name;
    store_.setCurrent(state);
    takeStock();
    changed();
    return HistoryStep::done;
}

HistoryStep History::putBackAsNew(StateId state) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [state](const auto& entry) { return entry.id == state; });
    if (found == entries_.end() || !show(state))
        return HistoryStep::lost;
    platform::HistoryEntry entry = *found;
    entry.parent = tree_.current();
    entry.kind = changeKind::open;
    entry.text = "Back to: " + found->text;
    const std::string before = studio_.score.CurrentFileName;
    studio_.score.CurrentFileName = entry.name;
    entry.isSaved = studio_.saved.isSaved(studio_.score);
    const std::string name = entry.name;
    tree_.add(add(std::move(entry), exactText(studio_.score)), {before, name});
    takeStock();
    changed();
    return HistoryStep::done;
}

/// Shows the score of a state. The view moves if no changed column is in sight. Scrolling may run
/// other handlers, so nothing is noticed and no other step starts meanwhile.
bool History::show(StateId state) {
    const auto text = textOf(state);
    if (!text)
        return false;
    Score target;
    readText(*text, target);
    const ChangedPlace place = changedPlace(studio_.score, target);
    const View& view = studio_.view;
    const bool isColumnInSight =
        place.firstColumn <= view.LastVisibleColumn && place.lastColumn >= view.FirstColumn;
    const bool isLineInSight =
        !isMusicRow(place.row) || (place.pitch >= view.TopPitch && place.pitch <= view.BottomPitch);
    isStepping_ = true;
    files_.restore(*text, isColumnInSight ? -1 : place.firstColumn,
                   isLineInSight ? -1 : place.pitch);
    isStepping_ = false;
    return true;
}

std::optional<std::string> History::textOf(StateId state) {
    if (state == 0)
        return startText_;
    return store_.score(state);
}

bool History::read(StateId state, Score& score) {
    const auto text = textOf(state);
    if (text)
        readText(*text, score);
    return text.has_value();
}

const std::vector<platform::HistoryEntry>& History::entries() {
    if (!hasEarlier_) {
        entries_ = store_.entries();
        hasEarlier_ = true;
    }
    return entries_;
}

std::string History::textOfEntry(StateId state) const {
    const auto found = std::find_if(entries_.rbegin(), entries_.rend(),
                                    [state](const auto& entry) { return entry.id == state; });
    return found == entries_.rend() ? std::string() : found->text;
}

std::string History::undoText() const {
    return tree_.canUndo() ? textOfEntry(tree_.current()) : std::string();
}

std::string History::redoText() const {
    return tree_.canRedo() ? textOfEntry(tree_.redoTarget()) : std::string();
}

void History::clear() {
    changeFinished();
    store_.clear();
    entries_.clear();
    hasEarlier_ = true;
    tree_.clear(0);
    if (isWorthKeeping(studio_.score)) {
        platform::HistoryEntry entry;
        entry.kind = changeKind::block;
        entry.text = "Kept when the history was cleared";
        entry.name = studio_.score.CurrentFileName;
        entry.isSaved = studio_.saved.isSaved(studio_.score);
        tree_.clear(add(std::move(entry), exactText(studio_.score)));
    }
    startText_ = exactText(studio_.score);
    takeStock();
    changed();
}

void History::end() {
    if (!isActive_)
        return;
    changeFinished();
    store_.end(!isWorthKeeping(last_) || studio_.saved.isSaved(last_));
    isActive_ = false;
}

void History::endWithError() {
    if (!isActive_)
        return;
    changeFinished();
    store_.end(false);
    isActive_ = false;
}

} // namespace velorin
