// The help as a book: its pages with the table of keys filled in, and the search through them.
#pragma once

#include "resources/HelpPages.h"

#include <QString>

#include <vector>

namespace velorin {

/// A page on which all words of a search stand.
struct HelpHit {
    QString file;
    QString title;
    QString line; ///< what stands around the first of the words
    int rank = 0; ///< a word in the title counts most, then one in a heading or a control's name
};

class HelpBook {
public:
    explicit HelpBook(std::vector<HelpPage> pages);

    [[nodiscard]] const std::vector<HelpPage>& pages() const { return pages_; }

    /// Null if there is no such page.
    [[nodiscard]] const HelpPage* page(const QString& file) const;

    /// The pages on which all words of `text` stand, in any case, also as parts of words; the best
    /// first. Nothing for a text without words.
    [[nodiscard]] std::vector<HelpHit> search(const QString& text) const;

private:
    std::vector<HelpPage> pages_;
    std::vector<QString> plain_; ///< the pages without their marks, in the same order
};

} // namespace velorin
