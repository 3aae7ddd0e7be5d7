// The tool windows that the program is given besides the Setup Toolbar.
#include "windows/ToolWindows.h"

#include "editing/EditingToolbar.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "recording/RecordingToolbar.h"
#include "tutorial/TutorialWizard.h"
#include "windows/WizardCalls.h"

namespace velorin {

void addToolWindows(Program& program) {
    Form1& form1 = program.makeMainWindow();
    auto editing = std::make_unique<EditingToolbar>(program.studio(), form1, form1);
    auto record = std::make_unique<RecordingToolbar>(program.studio(), form1.watch, form1, form1);
    form1.recording = record.get();
    auto calls = std::make_unique<WizardCalls>(program, *editing, *record);
    program.addToolWindow("Form2", std::move(editing));
    program.addToolWindow("Record", std::move(record));
    program.addToolWindow("Wiz", std::make_unique<TutorialWizard>(
                                     program.studio(), std::move(calls), form1, program.hints));
}

} // namespace velorin
