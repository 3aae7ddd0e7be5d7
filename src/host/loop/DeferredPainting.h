// Defers painting while a handler yields.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <vector>

namespace velorin::host {

/// A handler that yields has more work to do: the next column of a song, the next frames of an
/// encoding. Painting would delay that work, so it is deferred until the handler waits, when there
/// is time to spare. For a handler that never waits, nothing is deferred for longer than 20 ms.
///
/// Filters the paint requests of the whole application while it lives; input, timers and all other
/// events pass. For the user-interface thread only.
class DeferredPainting : public QObject {
    Q_OBJECT

public:
    DeferredPainting();

    /// Defers painting while it lives. Its end posts the deferred requests again.
    class YieldScope {
    public:
        explicit YieldScope(DeferredPainting& painting);
        ~YieldScope();
        YieldScope(const YieldScope&) = delete;
        YieldScope& operator=(const YieldScope&) = delete;

    private:
        DeferredPainting& painting_;
        int outerLevel_;
    };

    /// Lets painting pass while it lives, also in a handler that runs inside a yield.
    class WaitScope {
    public:
        explicit WaitScope(DeferredPainting& painting);
        ~WaitScope();
        WaitScope(const WaitScope&) = delete;
        WaitScope& operator=(const WaitScope&) = delete;

    private:
        DeferredPainting& painting_;
        int outerLevel_;
    };

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void repostDeferred();

    /// The nesting level of event loops at which painting is deferred. A dialog opened inside a
    /// yield has its own loop, one level deeper, and paints.
    int deferringLevel_;
    QElapsedTimer deferredSince_; ///< not running if nothing was deferred since the last wait
    std::vector<QPointer<QObject>> deferred_;
};

} // namespace velorin::host
