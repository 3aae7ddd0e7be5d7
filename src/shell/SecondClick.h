// Keeps the second click of a double click from what lies below a window that the first one closed.
#pragma once

#include <QObject>
#include <QPointF>

class QMouseEvent;

namespace velorin {

/// A hint asks for a double click and goes with its first press, so the second press would fall on
/// the window below: draw a note there, or click another step.
class SecondClick : public QObject {
    Q_OBJECT

public:
    /// To be called at the press that closes a window. The next press is dropped with its release
    /// if it makes a double click with this one.
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
