// Operations on whole columns. They are known by the names of the toolbar and of the main window.
#include "Operations.h"
#include "Runner.h"
#include "session/Session.h"

namespace transcript {

using namespace velorin;

Operations editingOperations() {
    const auto edits = [](Runner& runner) -> BlockEdits& { return runner.session().edits; };
    const auto duplicate = [](Runner& runner) -> Duplicate& { return runner.session().duplicate; };
    Operations all;
    for (const std::string window : {"Form1.", "Form2."}) {
        const Operations some{
            operation(window + "CopySelectedArea", edits, &BlockEdits::CopySelectedArea),
            operation(window + "copyIt", edits, &BlockEdits::copyIt),
            operation(window + "CutBut_Click", edits, &BlockEdits::CutBut_Click),
            operation(window + "PasteBut_Click", edits, &BlockEdits::PasteBut_Click),
            operation(window + "PasteIntoBut_Click", edits, &BlockEdits::PasteIntoBut_Click),
            operation(window + "InsertColumnBut_Click", edits, &BlockEdits::InsertColumnBut_Click),
            operation(window + "InsertColumns", edits, &BlockEdits::InsertColumns),
            operation(window + "CopyNotes", duplicate, &Duplicate::CopyNotes),
            operation(window + "Command6_Click", duplicate, &Duplicate::Command6_Click),
            operation(window + "DuplicateRepeat", duplicate, &Duplicate::DuplicateRepeat),
        };
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

} // namespace transcript
