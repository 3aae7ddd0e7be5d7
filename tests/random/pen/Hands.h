// A user with the pen, and one with the mouse who repeats the drawings.
#pragma once

#include "DrawingStage.h"

#include <QEvent>
#include <QPointF>

namespace randomly {

/// Goes to random places by the keys of the pen, and records the drawing.
class PenHand final : public Hand {
public:
    PenHand(DrawingStage& stage, unsigned seed) : stage_(stage), chance_(seed) {}

    void scroll(Drawing& drawing) override;
    void press(Drawing& drawing) override;
    void move(Drawing& drawing) override;
    void release(Drawing& drawing) override;

private:
    [[nodiscard]] velorin::Place somewhere(velorin::Tableau tableau);
    void walkTo(const velorin::Place& target);
    void stepTo(const velorin::Place& target);
    void press(int key, int modifiers = 0);
    [[nodiscard]] static int keyOf(int button);

    DrawingStage& stage_;
    Chance chance_;
};

/// Reads a recorded drawing. Hovers at random places before it presses, and reports each place of a
/// drag more than once.
class MouseHand final : public Hand {
public:
    MouseHand(DrawingStage& stage, unsigned seed) : stage_(stage), chance_(seed) {}

    void scroll(Drawing& drawing) override;
    void press(Drawing& drawing) override;
    void move(Drawing& drawing) override;
    void release(Drawing& drawing) override;

private:
    [[nodiscard]] QPointF nearTo(const velorin::Place& place);
    void send(velorin::Tableau tableau, QEvent::Type type, int button, int held, QPointF at);

    DrawingStage& stage_;
    Chance chance_;
};

} // namespace randomly
