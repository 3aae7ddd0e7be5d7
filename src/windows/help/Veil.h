// Dims the windows of the program that take no clicks while a lesson's hint is open.
#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

class QWidget;

namespace velorin {

/// Lays a pane over each visible window, also over one that is shown later. A pane takes no mouse
/// and no focus, and is painted above the window's controls: the pictures of the tableaux stay as
/// they are. The destructor removes the panes. User-interface thread only.
class Veil : public QObject {
    Q_OBJECT

public:
    /// `bright` is the window that is not dimmed; it must outlive the veil.
    explicit Veil(QWidget& bright);
    ~Veil() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cover(QWidget& window);

    QWidget& bright_;
    std::vector<QPointer<QWidget>> panes_; ///< owned by their windows
};

} // namespace velorin
