// The window that shows hints and notices: text, a close button, and a title for a lesson.
#pragma once

#include "windows/frame/SecondClick.h"
#include "windows/frame/WindowPlace.h"

#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include <functional>

namespace velorin {

class WindowDrag;
struct FrameState;

/// How the user closes a hint or a notice.
enum class HintEnd {
    text,   ///< a click or a double click on the text, or Enter or Space
    button, ///< the close button, or the desktop's close command
    escape, ///< the Escape key
};

/// Never takes the focus by itself. The title band of a lesson moves the window: a lesson opens
/// over the steps that follow its own. Each change of its outline is counted in `frames`, which
/// outlives it.
class HintPanel : public QWidget {
    Q_OBJECT

public:
    /// `name` is the window's name in the tables, "frminfo" or "Notice".
    HintPanel(const char* name, FrameState& frames);

    QLabel* Label1;
    QToolButton* imgTitleClose;
    QWidget* Timer1;   ///< never shown; enabled while a hint's time runs
    WindowPlace place; ///< in twips

    /// Sets the text and makes the window as high as it needs. It is 360 pixels wide for a hint,
    /// 460 for a lesson. Does nothing if it has that text already.
    void setText(const QString& text, bool lesson);

    /// Makes it an empty hint, the state of a window that was just loaded.
    void clear();

    std::function<void(HintEnd)> onClose;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut(const QString& shown);
    void leave(HintEnd end);
    [[nodiscard]] bool isOnBand(const QMouseEvent& pointer) const;

    QLabel* title_;
    WindowDrag* drag_; ///< owned by the window
    FrameState& frames_;
    SecondClick secondClick_;
    bool lesson_ = false;
};

} // namespace velorin
