// The tool tip of the music tableau: the letter of the note under the pointer and its instrument.
#include "score/Studio.h"
#include "tableaux/MouseDrag.h"
#include "tableaux/MusicMouse.h"
#include "tableaux/Picmain.h"
#include "tableaux/TableauDesk.h"

#include <array>

namespace velorin {

namespace {

std::string withoutNumber(const std::string& entry) {
    const auto blank = entry.find(' ');
    return blank == std::string::npos ? entry : entry.substr(blank + 1);
}

} // namespace

void MusicMouse::showToolTip(double x) {
    const auto cell = tipCell(studio_, x);
    if (!cell)
        return;
    if (isEmpty(cell->note)) {
        area_.MusicBox->setToolTip({});
        return;
    }
    const std::string entry = desk_.Combo1Entry(cell->instrument);
    if (cell->note > 0)
        NoteLabel(cell->note);
    area_.MusicBox->setToolTip(
        QString::fromStdString(studio_.view.LastNoteLabel + " -  " + withoutNumber(entry)));
}

// Counted from 9, "B", down to 19, "C#". A C comes out as 8, for which there is no name, so that
// the label found before stays.
void MusicMouse::NoteLabel(int value) {
    static constexpr std::array<const char*, 11> names{"B", "A#", "A",  "G#", "G", "F#",
                                                       "F", "E",  "D#", "D",  "C#"};
    if (value > heldOffset)
        value -= heldOffset;
    int step = value + 1;
    if (step < 9)
        step += 12;
    while (step >= 20)
        step -= 12;
    if (step >= 9)
        studio_.view.LastNoteLabel = names[static_cast<std::size_t>(step - 9)];
}

} // namespace velorin
