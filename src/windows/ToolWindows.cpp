// The tool windows that the program is given besides the Setup Toolbar.
#include "windows/ToolWindows.h"

#include "editing/EditingToolbar.h"
#include "shell/Form1.h"
#include "shell/Program.h"

namespace velorin {

void addToolWindows(Program& program) {
    Form1& form1 = program.form1();
    program.addToolWindow("Form2",
                          std::make_unique<EditingToolbar>(program.studio(), form1, form1));
}

} // namespace velorin
