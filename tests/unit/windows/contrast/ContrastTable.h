// The tables of contrasts in docs/accessibility.md.
#pragma once

#include <QColor>

#include <string>
#include <vector>

namespace velorin {

struct ColourPair {
    std::string what;
    std::string ground;
    QColor above;
    std::vector<QColor> below; ///< of several, the worst counts
    double needed;
    std::string other; ///< another way to know it, if the contrast is too low; else empty
};

[[nodiscard]] double ratioOf(const ColourPair& pair);

/// Fails if the document has other lines between the mark `name` and the next end, and then shows
/// those that it must have.
void expectTable(const char* name, const std::vector<ColourPair>& pairs);

} // namespace velorin
