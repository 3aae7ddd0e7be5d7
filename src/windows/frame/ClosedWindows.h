// Destroys closed windows, each as soon as none of its handlers can still be running.
#pragma once

#include <QObject>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

class QWidget;

namespace velorin {

class HoldingLoop;

/// A handler may close its own window, or run a nested loop in which another handler closes it. The
/// window must then exist until the handler has returned. User-interface thread only.
class ClosedWindows {
public:
    /// Needs an event dispatcher. `loop` outlives this.
    explicit ClosedWindows(HoldingLoop& loop);

    /// Call it when a tool window is made: no handler that runs at that moment belongs to it.
    void noteMade(const QWidget& window);

    /// Hides the window at once and destroys it later, never before this returns.
    void destroyLater(std::unique_ptr<QWidget> window);

private:
    struct Closed {
        std::unique_ptr<QWidget> window;
        std::uint64_t madeAt; ///< a moment of `loop_`; 0 if unknown
    };

    void destroyFree();

    HoldingLoop& loop_;
    std::map<const QWidget*, std::uint64_t> madeAt_; ///< of windows that are open
    std::vector<Closed> closed_;                     ///< to be destroyed
    QObject dispatcherWatch_;
};

} // namespace velorin
