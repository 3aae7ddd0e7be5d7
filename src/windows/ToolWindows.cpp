// The tool windows that the program is given besides the Setup Toolbar.
#include "windows/ToolWindows.h"

#include "editing/EditingToolbar.h"
#include "recording/RecordingToolbar.h"
#include "shell/Form1.h"
#include "shell/Program.h"

namespace velorin {

void addToolWindows(Program& program) {
    Form1& form1 = program.form1();
    program.addToolWindow("Form2",
                          std::make_unique<EditingToolbar>(program.studio(), form1, form1));
    auto record = std::make_unique<RecordingToolbar>(program.studio(), form1.watch, form1, form1);
    form1.recording = record.get();
    program.addToolWindow("Record", std::move(record));
}

} // namespace velorin
