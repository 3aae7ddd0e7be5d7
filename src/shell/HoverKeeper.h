// Keeps the highlight of what lies under the pointer true while handlers last.
#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace velorin {

/// One for the program. A click may last as long as a song or a dialog, and the window system then
/// tells the control that was clicked nothing of the pointer's leaving. Each move of the pointer
/// makes up for that.
class HoverKeeper : public QObject {
    Q_OBJECT

public:
    HoverKeeper();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void forget(const QObject* control);
    void leaveAllBut(QPointF place); ///< on the screen

    std::vector<QPointer<QWidget>> entered_; ///< have been entered, and not left since
};

} // namespace velorin
