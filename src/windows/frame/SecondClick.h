// Drops the second click of a double click whose first click closed a window.
#pragma once

#include <QObject>
#include <QPointF>

class QMouseEvent;

namespace velorin {

/// A hint asks for a double click but closes at the first press. The second press would then reach
/// the window below and draw a note, or click another step.
class SecondClick : public QObject {
    Q_OBJECT

public:
    /// Call it at the press that closes a window. The next press and its release are dropped if
    /// they make a double click with this one.
    void follows(const QMouseEvent& press);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isSecond(const QMouseEvent& press) const;
    void stop();

    QPointF place_;                 ///< of the first press, on the screen
    unsigned long long timeMs_ = 0; ///< of the first press
    bool dropping_ = false;
};

} // namespace velorin
