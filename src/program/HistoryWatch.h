// Tells the history when a change may have finished.
#pragma once

#include <QObject>

#include <functional>

namespace velorin {

class History;

/// A change is finished when its handler has returned to the message loop and neither a mouse
/// button nor the pen is held, so a drag is one change. There is no timer: the history looks when
/// the loop is about to sleep, and before each press and each key.
class HistoryWatch : public QObject {
    Q_OBJECT

public:
    /// `history` outlives this.
    explicit HistoryWatch(History& history) : history_(history) {}

    void start();
    void stop();

    bool eventFilter(QObject* watched, QEvent* event) override;

    std::function<bool()> isPenHeld; ///< may be empty

private:
    [[nodiscard]] bool isHeld() const;

    History& history_;
};

} // namespace velorin
