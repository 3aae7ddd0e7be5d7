// Clears the hover highlight of controls that the pointer left while a handler was running.
#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace velorin {

/// One for the program. The handler of a click may run as long as a song or a dialog. The window
/// system then sends the clicked control no leave event. So each move of the pointer sends the
/// leave events that are missing.
class HoverKeeper : public QObject {
    Q_OBJECT

public:
    HoverKeeper();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void forget(const QObject* control);
    void leaveAllBut(QPointF place); ///< on the screen

    std::vector<QPointer<QWidget>> entered_; ///< entered and not left since
};

} // namespace velorin
