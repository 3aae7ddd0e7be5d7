// A scroll bar whose keys and arrows go the way that its ends lie.
#pragma once

#include <QScrollBar>

namespace velorin {

/// Left and up go towards the bar's beginning, right and down away from it, whatever its direction.
/// With the high value at the top, the upper arrow, the wheel turned up, the keys up and Home raise
/// the value.
class ScrollBar : public QScrollBar {
public:
    enum class Top { low, high };

    ScrollBar(Qt::Orientation direction, QWidget* parent, Top top = Top::low);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void turnRound(int action);
};

} // namespace velorin
