// The pages of the help, as they are built into the program.
#pragma once

#include <QString>

#include <vector>

namespace velorin {

struct HelpPage {
    QString file;  ///< "drawing.html", as links name it
    QString title; ///< "Drawing notes"
    QString html;
};

/// In the order of the table of contents; the first page is the one that the help opens with. A
/// page that is missing is left out.
[[nodiscard]] std::vector<HelpPage> helpPages();

} // namespace velorin
