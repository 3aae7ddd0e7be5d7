// Runs something once, after a widget has been painted.
#pragma once

#include <QObject>

#include <functional>

namespace velorin {

/// For what the user need not see at once: the first picture of a window does not wait for it.
/// Owned by the widget. User-interface thread only.
class AfterPaint : public QObject {
    Q_OBJECT

public:
    /// Runs `action` from the event loop after the next paint of `widget`, and then destroys
    /// itself.
    AfterPaint(QWidget& widget, std::function<void()> action);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> action_;
};

} // namespace velorin
