// Operations on whole columns. The toolbar and the menus reach them through the main window, so
// both names are known.
#include "Operations.h"
#include "Session.h"
#include "program/Form1.h"

namespace transcript {

using namespace velorin;

Operations editingOperations() {
    const auto edits = [](Session& session) -> BlockEdits& { return session.form1().edits; };
    const auto duplicate = [](Session& session) -> Duplicate& { return session.form1().duplicate; };
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
