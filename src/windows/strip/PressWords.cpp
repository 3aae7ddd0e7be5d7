// Why a click on a tableau did not do what the user expected, in one sentence.
#include "windows/strip/PressWords.h"

#include "model/Cell.h"
#include "studio/Run.h"
#include "windows/texts/ControlTable.h"

namespace velorin {

namespace {

constexpr int byLeft = 1;
constexpr int byRight = 2;

std::string chosenSentence(const Press& press, const char* drawn) {
    std::string text = rowName(press.rowNow) + std::string(" is chosen now");
    if (!press.got.empty())
        text += ", with " + press.got;
    return text + ". Click again to draw " + drawn + ".";
}

std::string hiddenSentence(const Press& press) {
    return rowName(press.rowNow) +
           std::string(" is hidden, so what you draw is not shown. Show it in the Setup Toolbar.");
}

/// A right click that found nothing to erase or to mark.
std::string nothingThere(const Press& press, const char* thing) {
    const bool marks = press.where == Tableau::music && press.rightClick == rightClick::polynotes;
    const std::string act = marks ? "mark" : "erase";
    if (press.otherRow >= 0)
        return "This " + std::string(thing) + " is of " + rowName(press.otherRow) +
               ". Choose that channel to " + act + " it.";
    return rowName(press.rowNow) + std::string(" has no ") + thing + " to " + act +
           " in this column.";
}

/// A press that did not choose a row.
std::string drawSentence(const Press& press, const char* thing) {
    const bool menu = press.rightClick == rightClick::menu;
    if (press.button == byRight)
        return press.hasNote || menu ? std::string() : nothingThere(press, thing);
    if (press.button != byLeft)
        return "The left button draws. The right one erases, or what its button on the toolbar "
               "says.";
    if (press.isHidden)
        return hiddenSentence(press);
    if (press.isBelowLowest)
        return "The lowest note is 0C. A note that you draw below it does not sound.";
    return {};
}

std::string laneSentence(const Press& press) {
    if (press.lane < 0)
        return {};
    const std::string column = std::to_string(press.column + 1);
    if (press.markedColumn != press.column)
        return "The view is scrolled, so the mark is in column " +
               std::to_string(press.markedColumn + 1) + ". Return to Start to mark here.";
    if (press.button != byLeft)
        return "A click sets a mark with any button. Pull with the right one to remove marks.";
    if (press.wasMarked)
        return "This column is marked already. Pull with the right button to remove marks.";
    if (!press.isNoteStart)
        return "No note of " + std::string(rowName(press.lane)) + " begins in column " + column +
               ", so this mark changes nothing yet.";
    return {};
}

} // namespace

std::string pressSentence(const Press& press) {
    const bool draws = press.editMode == editMode::draw;
    switch (press.where) {
    case Tableau::music:
        if (press.rowNow != press.rowBefore)
            return chosenSentence(press, "notes");
        return draws ? drawSentence(press, "note") : std::string();
    case Tableau::strip:
        if (press.rowNow != press.rowBefore)
            return chosenSentence(press, "beats");
        if (!press.hasDrum)
            return "No drum sound was chosen yet. Choose one in the lower list of the Setup "
                   "Toolbar.";
        return draws ? drawSentence(press, "beat") : std::string();
    case Tableau::lanes:
        return laneSentence(press);
    case Tableau::numbers:
        return "The position marker is at column " + std::to_string(press.markedColumn + 1) +
               " now.";
    }
    return {};
}

std::string lockedSentence() {
    return "The tableaux are locked while the song plays. Stop it first: press Space.";
}

std::string selectSentence() {
    return "Select mode: pull across columns to select them. F2 goes back to drawing.";
}

std::string instrumentSentence(int row, const std::string& instrument) {
    return rowName(row) + std::string(" plays ") + instrument +
           " now: it took over what the list shows.";
}

std::string setupLostSentence() {
    return "The Setup Toolbar is closed: volumes, hidden channels and chords are reset.";
}

} // namespace velorin
