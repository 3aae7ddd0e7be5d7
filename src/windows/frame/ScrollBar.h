// A scroll bar whose keys, arrows and wheel move towards the end that they point at.
#pragma once

#include <QScrollBar>

namespace velorin {

/// Left and up move towards the beginning of the bar, right and down towards its end. With the high
/// value at the top, the upper arrow, the wheel turned up, and the keys Up and Home raise the
/// value.
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
