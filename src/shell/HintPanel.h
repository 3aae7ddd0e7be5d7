// The face of the hint window: paper, text, a button to close it, and for a lesson a title.
#pragma once

#include "shell/SecondClick.h"
#include "shell/WindowPlace.h"

#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include <functional>

namespace velorin {

class HintPanel : public QWidget {
    Q_OBJECT

public:
    HintPanel();

    QLabel* Label1;
    QToolButton* imgTitleClose;
    QWidget* Timer1;   ///< never shown; enabled while a hint's time runs
    WindowPlace place; ///< in twips

    /// Sets the text and makes the window as high as it needs. Width 360 for a hint, 460 for a
    /// lesson.
    void setText(const QString& text, bool lesson);

    std::function<void()> onClose; ///< a click on the text, a double click, or the button

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void leave();

    QLabel* title_;
    SecondClick secondClick_;
    bool lesson_ = false;
};

} // namespace velorin
