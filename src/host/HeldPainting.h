// Painting that steps aside for work that yields.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <vector>

namespace velorin::host {

/// A handler that yields has work to go on with: the next column of a song, the next frames of an
/// encoding. What the windows want painted would come on top of that work, so it is left to the
/// handler's own wait, where time is to spare. A handler that never waits is seen to move all the
/// same: nothing is held for longer than 20 ms.
///
/// Watches the requests for painting of the whole application while it lives; input, timers and
/// everything else pass. For the user-interface thread alone.
class HeldPainting : public QObject {
    Q_OBJECT

public:
    HeldPainting();

    /// While one lives, painting is held. What is held comes back into the queue with its end.
    class Yielding {
    public:
        explicit Yielding(HeldPainting& painting);
        ~Yielding();
        Yielding(const Yielding&) = delete;
        Yielding& operator=(const Yielding&) = delete;

    private:
        HeldPainting& painting_;
        int outerLevel_;
    };

    /// While one lives, painting passes, also in a handler that a yield has let through.
    class Waiting {
    public:
        explicit Waiting(HeldPainting& painting);
        ~Waiting();
        Waiting(const Waiting&) = delete;
        Waiting& operator=(const Waiting&) = delete;

    private:
        HeldPainting& painting_;
        int outerLevel_;
    };

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void giveBack();

    /// The depth of event loops at which painting is held. A dialog that is opened in a yield has a
    /// loop of its own, one deeper, and paints.
    int heldAtLevel_;
    QElapsedTimer heldSince_; ///< not running while nothing has been held since the last wait
    std::vector<QPointer<QObject>> held_;
};

} // namespace velorin::host
