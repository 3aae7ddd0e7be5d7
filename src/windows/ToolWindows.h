// The tool windows that the program is given besides the Setup Toolbar.
#pragma once

namespace velorin {

class Program;

/// Makes them known to the program under their names; before its start. None is loaded by this.
void addToolWindows(Program& program);

} // namespace velorin
