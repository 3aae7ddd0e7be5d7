// A message box in the program's own frame.
#pragma once

#include <QMessageBox>

#include <optional>

namespace velorin::host {

/// Looks like a hint: paper, with its title in a band by which it can be dragged. It is above the
/// tool windows and cannot be minimised.
class FramedBox : public QMessageBox {
    Q_OBJECT

public:
    /// Plain text. Pictures of the program stand for those of Qt.
    FramedBox(Icon icon, const QString& title, const QString& text,
              StandardButtons buttons = NoButton, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    std::optional<QPoint> held_; ///< where in the window the band is held
};

} // namespace velorin::host
