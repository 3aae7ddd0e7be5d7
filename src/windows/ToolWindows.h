// The tool windows that the program is given besides the Setup Toolbar.
#pragma once

namespace velorin {

class Program;

/// Makes the main window, and them known to the program under their names; behind the splash. None
/// is loaded by this.
void addToolWindows(Program& program);

} // namespace velorin
