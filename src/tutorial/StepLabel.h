// The label of a lesson's step: it takes a click, or a key once Tab has gone to it.
#pragma once

#include <QLabel>

#include <functional>

namespace velorin {

class StepLabel : public QLabel {
    Q_OBJECT

public:
    StepLabel(const QString& caption, QWidget* parent);

    /// Shows or takes away the highlight, which is the property "hot". While the label has the
    /// keyboard it has the highlight in any case.
    void setHighlighted(bool highlighted);

    std::function<void()> onClick; ///< a click, Enter or Space; of a double click the first
    std::function<void()> onMove;  ///< the mouse moved over it

protected:
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
};

} // namespace velorin
