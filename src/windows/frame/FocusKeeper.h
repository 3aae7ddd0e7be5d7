// Tracks which control has the focus and runs the focus handlers in order.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <unordered_map>
#include <vector>

namespace velorin {

/// One for the program. The focus moves when the user moves it (Tab, or a press on a control that
/// accepts the focus) or when code calls `give`. The window system also moves it when it shows or
/// activates a window, or when the focused control is disabled. Those moves do not count.
class FocusKeeper : public QObject {
    Q_OBJECT

public:
    FocusKeeper();
    ~FocusKeeper() override;

    /// Runs the lost-focus handler of the old control, then the got-focus handler of the new one,
    /// before it returns. Does nothing if `control` is disabled or hidden. If `control` has the
    /// focus already, only a handler that waits since the Tab key runs.
    void give(QWidget* control);

    /// Disables or enables a control and gives the focus to no other control. While the control is
    /// disabled, the window itself has the focus. When it is enabled again it gets the focus back,
    /// unless the user has moved the focus meanwhile.
    void enable(QWidget& control, bool enabled);

    /// The Tab key gives `control` the focus without running its handler, which waits for `choose`.
    void letTabPass(QWidget* control) { passed_ = control; }
    /// True if `control` got the focus by the Tab key and its handler still waits.
    [[nodiscard]] bool isWaiting(const QWidget* control) const;
    /// Runs the waiting handler, if there is one.
    void choose(QWidget* control);

    /// Null if no control has the focus: at the start, and after its window was destroyed.
    [[nodiscard]] QWidget* current() const { return current_; }

    /// One handler for each control; a second call replaces the first. Removed with the control.
    void onGot(QWidget* control, std::function<void()> handler);
    void onLost(QWidget* control, std::function<void()> handler);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Handlers {
        std::function<void()> got;
        std::function<void()> lost;
    };

    struct Disabled {
        QPointer<QWidget> control;
        QPointer<QWidget> holder; ///< had the focus: the control or a child of it
    };

    Handlers& handlersOf(QWidget* control);
    void moveTo(QWidget* control, bool byTab = false);
    void got(QWidget* control);
    [[nodiscard]] bool isVisited(const QWidget* control) const;
    /// Returns true if the event must be hidden from the control.
    bool followWindowSystem(QWidget* control, Qt::FocusReason reason);

    QPointer<QWidget> current_;
    std::vector<QPointer<QWidget>> visited_; ///< have had the focus
    std::unordered_map<QObject*, Handlers> handlers_;
    std::vector<Disabled> disabled_;
    QPointer<QWidget> passed_;  ///< set by `letTabPass`
    QPointer<QWidget> waiting_; ///< the control whose handler waits
    bool tabPressed_ = false;
};

} // namespace velorin
