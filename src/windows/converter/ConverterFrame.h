// The frame of the converter's window: it looks like a tool window, and the desktop moves and
// resizes it.
#pragma once

#include "windows/frame/SkinnedFrame.h"

#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include <functional>

namespace velorin {

/// Where a desktop insists on a frame of its own, the title band is left out.
class ConverterFrame : public QWidget {
    Q_OBJECT

public:
    ConverterFrame();

    QLabel* lblTitle;
    QToolButton* imgTitleHelp;
    QToolButton* imgTitleMinimize;
    QToolButton* imgTitleMaxRestore;
    QToolButton* imgTitleClose;

    std::function<void()> onHelp;
    /// The close button, or the desktop's close. Returns true to close the window.
    std::function<bool()> onClose;
    std::function<void()> onClosed; ///< the window is gone

protected:
    /// The upper end of the contents: 28, or 0 without the title band.
    [[nodiscard]] int contentsTop() const { return hasBand_ ? toolTitleHeight : 0; }
    /// Places the contents of a derived window. Called when the size or the band has changed.
    virtual void layOut() = 0;

    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum class Held { nothing, title, edge };

    QToolButton* makeTitleButton(const char* name, const char* picture);
    void layOutFrame();
    void lookForBand();
    void toggleMaximised();
    [[nodiscard]] Qt::Edges edgesAt(QPoint place) const;
    void showCursor(Qt::Edges edges);
    void moveBy(QPoint pointer);
    void resizeTo(QPoint pointer);

    FrameState state_; ///< its own: the converter has no other window that counts
    SkinnedFrame frame_;
    QLabel* picture_;
    bool hasBand_ = true;
    Held held_ = Held::nothing;
    Qt::Edges heldEdges_;
    QPoint pressedAt_;      ///< on the screen
    QRect geometryAtPress_; ///< for window systems without a desktop
    bool isMoving_ = false; ///< this window follows the pointer itself
};

} // namespace velorin
