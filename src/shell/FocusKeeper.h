// The one place that knows which control has the focus, and runs the focus handlers in their order.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <unordered_map>
#include <vector>

namespace velorin {

/// One for the program. The focus moves when a user moves it (Tab, a press on a control that takes
/// the keyboard) or when a procedure gives it. The window system's own moves, on showing or
/// activating a window or on disabling the control that has it, do not count.
class FocusKeeper : public QObject {
    Q_OBJECT

public:
    FocusKeeper();
    ~FocusKeeper() override;

    /// Runs the lost-focus handler of the old control, then the got-focus handler of the new one,
    /// before it returns. Nothing happens if `control` has the focus, is disabled or is hidden; but
    /// a handler that the Tab key has left waiting runs.
    void give(QWidget* control);

    /// Disables a control, or enables it again, and hands the keyboard to nobody else: as long as
    /// the control is disabled the keyboard waits at the window, and who had it has it afterwards,
    /// unless the user has gone elsewhere meanwhile.
    void enable(QWidget& control, bool enabled);

    /// The Tab key goes to `control` without its handler, which waits for `choose`.
    void letTabPass(QWidget* control) { passed_ = control; }
    /// Whether the Tab key has come to `control` and its handler waits.
    [[nodiscard]] bool isWaiting(const QWidget* control) const;
    /// Runs the handler that waits, if one does.
    void choose(QWidget* control);

    /// Null if nothing has it: at the start, and after the window of the control has gone.
    [[nodiscard]] QWidget* current() const { return current_; }

    /// One handler for each control; a second call replaces the first. Forgotten with the control.
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
        QPointer<QWidget> holder; ///< had the keyboard: the control, or one within it
    };

    Handlers& handlersOf(QWidget* control);
    void moveTo(QWidget* control, bool byTab = false);
    void got(QWidget* control);
    [[nodiscard]] bool isVisited(const QWidget* control) const;
    /// Returns whether the control is not to hear of it.
    bool followWindowSystem(QWidget* control, Qt::FocusReason reason);

    QPointer<QWidget> current_;
    std::vector<QPointer<QWidget>> visited_; ///< have had the focus
    std::unordered_map<QObject*, Handlers> handlers_;
    std::vector<Disabled> disabled_;
    QPointer<QWidget> passed_;  ///< the Tab key does not run its handler
    QPointer<QWidget> waiting_; ///< its handler waits
    bool tabPressed_ = false;
};

} // namespace velorin
