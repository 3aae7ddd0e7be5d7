// What the block edits ask of the windows: the texts of the number boxes, and a line for the user.
#pragma once

#include <string>

namespace velorin {

/// Implemented by whoever owns the boxes. Texts as the user left them; the edits read the number
/// that each begins with.
class EditingDesk {
public:
    virtual ~EditingDesk() = default;

    // The copies on `Form1`, which is what Duplicate reads.
    [[nodiscard]] virtual std::string Text3() = 0; ///< notes
    [[nodiscard]] virtual std::string Text4() = 0; ///< repeat
    [[nodiscard]] virtual std::string Text5() = 0; ///< beats

    /// `Text1` of `Form2`: how many columns an insert opens.
    [[nodiscard]] virtual std::string Form2Text1() = 0;

    /// Shows one line in the hint window.
    virtual void showHint(const std::string& line) = 0;
};

} // namespace velorin
