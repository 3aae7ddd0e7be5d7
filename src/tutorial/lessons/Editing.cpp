// Lesson "Editing": single notes and groups of columns.
#include "tutorial/Acts.h"

namespace velorin {

using namespace acts;

Lesson editingLesson() {
    return {
        "Editing     ",
        "L1E",
        "Editing a score",
        {
            {"1. Draw a few notes....",
             {"Click the second button on the toolbar to open a score file. You can simply "
              "draw some notes on the tableau instead."},
             {call(&Session::commands, &ScoreCommands::Command4_Click), clicks(leftButton, {8, 87}),
              clicks(leftButton, {23, 78}), clicks(leftButton, {29, 66}),
              clicks(leftButton, {42, 51}), clicks(leftButton, {68, 64}),
              clicks(leftButton, {76, 92}), clicks(leftButton, {89, 115}),
              clicks(leftButton, {100, 134}), clicks(leftButton, {115, 163})},
             StepPointer::hourglass,
             StepMode::drawing},
            {"2. Editing one note at a time....",
             {"Editing one note at a time is a simple process of using the mouse to replace "
              "notes. "},
             {}},
            {"a. Delete single notes....",
             {"To delete an individual note, move your cursor into the column space occupied "
              "by the note tobe deleted.",
              "Then click the right mouse button to delete the note."},
             {clicks(rightButton, {89, 115}), clicks(rightButton, {100, 134}),
              clicks(rightButton, {115, 163})},
             StepPointer::hourglass,
             StepMode::drawing},
            {"b. Edit single notes....",
             {"To edit an individual note, move your cursor into the column space occupied by "
              "the note to be edited.",
              "Then click the left mouse button to draw a new note to replace the old one. "
              "Notice that you can replace a note completely, or partially, if it's a long "
              "note."},
             {clicks(leftButton, {89, 115}), clicks(leftButton, {100, 115}),
              clicks(leftButton, {115, 115})},
             StepPointer::hourglass,
             StepMode::drawing},
            {"c. Change the instrument for single notes....",
             {"Select an instrument using the drop-down selector in the setup toolbar."},
             {call(&WizardDesk::chooseInstrument, 3), clicks(leftButton, {89, 115}),
              clicks(leftButton, {100, 115}), clicks(leftButton, {115, 115})},
             StepPointer::hourglass,
             StepMode::drawing},
            {"3. Edit groups of notes at a time.......",
             {"Editing a group of notes can be done effectively, by using the Editing toolbar.",
              "First, open the Editing toolbar by clicking button # 10 on the main toolbar."},
             {call(&WizardDesk::showForm2)}},
            {"a. Activate Editing mode.......",
             {"First, activate the editing mode by clicking the first button in the upper row "
              "of the editing toolbar.. ",
              "Notice that the icon changes to a double sided arrow, replacing a pencil, "
              "indicating that the editing mode is activated. Notice also that the five "
              "editing buttons to the right of the Mode button have been enabled."},
             {call(&WizardDesk::toggleEditMode)},
             StepPointer::normal,
             StepMode::drawing},
            {"b. Select a group of notes.......",
             {"To select a group of notes to be edited, place the cursor on the starting note, "
              "click the right mouse button, and drag the mouse over the tableau until the end "
              "note has been included. A colored column shows the selected notes. Both the "
              "instument group and percussion group are included, although only the instument "
              "selection is colored. "},
             {drags({23, 115}, {89, 115})}},
            {"c. Copy/paste a group of notes.......",
             {"To paste a selection to another location, overwriting any other notes already "
              "there, place the cursor on the starting point of the new location, and click "
              "the left mouse button. A colored column shows the new starting point. ",
              "Next, click button #4, 'Paste/Overwrtie' to perform the function."},
             {call(&Session::edits, &BlockEdits::copyIt), call(&WizardDesk::bringForm2ToFront),
              clicks(leftButton, {145, 132}), pauses(),
              call(&Session::edits, &BlockEdits::PasteBut_Click)},
             StepPointer::hourglass},
            {"d. Cut/paste a group of notes.......",
             {"To paste a selection to another location, inserting it between any other notes "
              "already there, place the cursor on the starting point of the new location, and "
              "click the left mouse button. A colored column shows the new starting point. ",
              "Next, click button #4, 'Paste/Overwrtie' to perform the function."},
             {drags({8, 115}, {76, 115}), call(&Session::edits, &BlockEdits::CutBut_Click),
              call(&WizardDesk::bringForm2ToFront), drags({135, 115}, {140, 115}),
              call(&Session::edits, &BlockEdits::PasteIntoBut_Click)}},
            {"e. Replicate a group of notes.......",
             {"You can create a rhythmic motif by duplicating a sequence of notes over and "
              "over. To duplicate or clone a sequence of notes many times over, create the "
              "motif you want to duplicate first.. ",
              "Next, set the total number of notes in the completed sequence in the window "
              "labelled 'Notes'. ",
              "Enter the length of the sequence in the window labelled 'Repeat'. ",
              "Enter the number of playable notes in the sequence in the window labelled "
              "'Beats. ",
              "If this seems confusing, use the following example: You want to create a motif "
              "having 60 notes. It has a beat of 8 notes, which are repeated every 12th note. "
              "Thus, there is a silence having a 4 note duration.  "},
             {call(&WizardDesk::setForm2Text3, "60"), call(&WizardDesk::setForm2Text4, "12"),
              call(&WizardDesk::setForm2Text5, "12"),
              call(&Session::duplicate, &Duplicate::CopyNotes, 0, 12)}},
            {"f. Insert space(s).......",
             {"Sometimes you would like to insert a space or two between notes, but you need "
              "to move all the notes on the right-hand side over by the same number of spaces. "
              "In a short score, you can use the cut/paste function, but in longer scores this "
              "would prove awkward.",
              "But it's quite simple to insert one or more spaces by using the 'Insert Spaces' "
              "function. ",
              "Enter the number of spaces in the window on the right-hand side of button # 6 "
              "('Insert Spaces'). ",
              "Click button # 6 ('Insert Spaces'), to perform the function."},
             {call(&WizardDesk::setForm2Text1, "10"), clicks(leftButton, {33, 115}),
              call(&Session::edits, &BlockEdits::InsertColumnBut_Click)},
             StepPointer::hourglass},
        }};
}

} // namespace velorin
