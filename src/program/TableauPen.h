// Draws on the tableaux for step entry, by their mouse handlers.
#pragma once

#include "entry/StepEntry.h"

namespace velorin {

class Form1;
class PictureBox;
struct Place;

/// Neither moves the keyboard focus nor the pointer.
class TableauPen final : public StepPen {
public:
    /// `form` outlives this.
    explicit TableauPen(Form1& form) : form_(form) {}

    [[nodiscard]] bool isReady() const override;
    [[nodiscard]] bool isStripShown() const override;
    [[nodiscard]] SeenCells seen() const override;
    void drawNote(int line, int column, int lastColumn) override;
    void drawBeat(int line, int column) override;

private:
    static void draw(const PictureBox& box, const Place& first, int lastColumn);

    Form1& form_;
};

} // namespace velorin
