// The pages of the help with the key table filled in, and the search in them.
#pragma once

#include "windows/help/HelpPages.h"

#include <QString>

#include <vector>

namespace velorin {

/// A page that contains all words of a search.
struct HelpHit {
    QString file;
    QString title;
    QString line; ///< the text around the first word
    /// Highest if all words are in the title, then by words in headings and control names.
    int rank = 0;
};

class HelpBook {
public:
    explicit HelpBook(std::vector<HelpPage> pages);

    [[nodiscard]] const std::vector<HelpPage>& pages() const { return pages_; }

    /// Null if there is no such page.
    [[nodiscard]] const HelpPage* page(const QString& file) const;

    /// The pages that contain all words of `text`, in any case and also as parts of words; the best
    /// first. Empty for a text without words.
    [[nodiscard]] std::vector<HelpHit> search(const QString& text) const;

private:
    std::vector<HelpPage> pages_;
    std::vector<QString> plain_; ///< the pages as plain text, in the same order
};

} // namespace velorin
