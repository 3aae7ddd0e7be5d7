// The texts of the controls in the converter's window.
#include "windows/texts/ControlTable.h"

#include <array>

namespace velorin {

namespace {

using enum ControlKind;

constexpr std::array controls{
    ControlText{"strip", "", "Choices", "", strip},
    ControlText{"add", "Add files (Ctrl+O)", "Add files", "A right click adds a folder."},
    ControlText{"clear", "Take all out of the list"},
    ControlText{"kind", "", "Make"},
    ControlText{"folder", "", "Into"},
    ControlText{"files", "", "Files", "The menu of a row has its commands. Delete takes it out."},
    ControlText{"row0", "Open in Velorin (Ctrl+Enter)", "Open in Velorin"},
    ControlText{"row1", "Play (Ctrl+P)", "Play"},
    ControlText{"row2", "Show in folder (Ctrl+F)", "Show in folder"},
    ControlText{"row3", "Take out (Delete)", "Take out"},
    ControlText{"report", "", "Report of the import"},
    ControlText{"sentences", "", "Sentences of the report"},
    ControlText{"closeReport", "", "Close the report"},
    ControlText{"chooseFiles", ""},
    ControlText{"chooseFolder", ""},
    ControlText{"progress", "", "Progress", "", progress},
    ControlText{"words", "", "", "", alert},
    ControlText{"start", ""},
    ControlText{"imgTitleHelp", "", "Help"},
    ControlText{"imgTitleMinimize", "", "Minimise"},
    ControlText{"imgTitleMaxRestore", "", "Maximise"},
    ControlText{"imgTitleClose", "", "Close"},
};

constexpr WindowTexts converter{"Converter", controls};

} // namespace

const WindowTexts& converterTexts() {
    return converter;
}

} // namespace velorin
