// The face of hints and notices: paper, text, a button to close it, and for a lesson a title.
#pragma once

#include "shell/SecondClick.h"
#include "shell/WindowPlace.h"

#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include <functional>

namespace velorin {

struct FrameState;

/// How the user closes a hint or a notice.
enum class HintEnd {
    text,   ///< a click or a double click on the text, or Enter or Space
    button, ///< the close button, or the desktop's close command
    escape, ///< the Escape key
};

/// It never takes the keyboard by itself. All setting of its outline is counted in `frames`, which
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

    /// Sets the text and makes the window as high as it needs. Width 360 for a hint, 460 for a
    /// lesson. Nothing happens if it has that text already.
    void setText(const QString& text, bool lesson);

    /// An empty hint, as the window is when it is loaded.
    void clear();

    std::function<void(HintEnd)> onClose;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut(const QString& shown);
    void leave(HintEnd end);

    QLabel* title_;
    FrameState& frames_;
    SecondClick secondClick_;
    bool lesson_ = false;
};

} // namespace velorin
