// What the tutorial asks of the wizard's window and of the hint window.
#pragma once

#include <string>

namespace velorin {

class WizardView {
public:
    virtual ~WizardView() = default;

    // Of `Wiz`; the first use loads it. Twips.
    [[nodiscard]] virtual bool Check1() = 0; ///< "Show Tips" is set
    [[nodiscard]] virtual float Left() = 0;
    [[nodiscard]] virtual float Top() = 0;
    [[nodiscard]] virtual float labelTop(int lesson, int step) = 0; ///< in its panel

    /// Shows a text in `frminfo` at a place in twips. Returns when the user has closed it, or when
    /// the program ends; false if the user has declined the step.
    [[nodiscard]] virtual bool showLesson(const std::string& text, float left, float top) = 0;

    /// The step was performed to its end. Called while the program runs; loads no window.
    virtual void stepDone(int lesson, int step) = 0;
};

} // namespace velorin
