// The tool tip of the music tableau: the name of the note under the pointer and its instrument.
#include "model/InstrumentNames.h"
#include "studio/Studio.h"
#include "windows/main/MouseDrag.h"
#include "windows/main/MusicMouse.h"
#include "windows/main/Picmain.h"
#include "windows/main/TableauDesk.h"

#include <array>

namespace velorin {

namespace {

std::string withoutNumber(const std::string& entry) {
    const auto blank = entry.find(' ');
    return blank == std::string::npos ? entry : entry.substr(blank + 1);
}

} // namespace

// Rule: cell 0, the highest key, does not change the name, so its tip has the name of the note
// before. Held by tableaux/music_tooltips.
void MusicMouse::showToolTip(double x) {
    const auto cell = tipCell(studio_, x);
    if (!cell)
        return;
    if (isEmpty(cell->note)) {
        area_.MusicBox->setToolTip({});
        return;
    }
    const std::string entry = instrumentEntry(cell->instrument);
    if (cell->note > 0)
        NoteLabel(cell->note);
    area_.MusicBox->setToolTip(
        QString::fromStdString(studio_.view.LastNoteLabel + " -  " + withoutNumber(entry)));
}

// Counts from 9, "B", to 19, "C#".
//
// Rule: a C gives 8, which has no name, so the name of the note before stays. Held by
// tableaux/music_tooltips.
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
