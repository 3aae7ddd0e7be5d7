// The pages of the help, which are built into the program.
#pragma once

#include <QString>

#include <vector>

namespace velorin {

struct HelpPage {
    QString file;  ///< "drawing.html", as in links
    QString title; ///< "Drawing notes"
    QString html;
};

/// In the order of the table of contents. The help opens with the first page. Missing pages are
/// left out.
[[nodiscard]] std::vector<HelpPage> helpPages();

} // namespace velorin
