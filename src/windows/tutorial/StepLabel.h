// The label of a lesson's step. A click, or Enter or Space while it has the focus, performs the
// step.
#pragma once

#include <QLabel>

#include <functional>

namespace velorin {

class StepLabel : public QLabel {
    Q_OBJECT

public:
    StepLabel(const QString& caption, QWidget* parent);

    /// Sets or clears the highlight, the property "hot". A label with the focus is always
    /// highlighted.
    void setHighlighted(bool highlighted);

    /// Shows a tick at the right end, which screen readers read as "done" after the caption.
    void setDone(bool done);
    [[nodiscard]] bool isDone() const { return done_; }

    std::function<void()> onClick; ///< a click, Enter or Space; once for a double click
    std::function<void()> onMove;  ///< the mouse moved over it

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void showHot();
    void click();

    bool highlighted_ = false;
    bool pressed_ = false;
    bool done_ = false;
};

} // namespace velorin
