// A push button with a picture to the left of its text.
#pragma once

#include <QIcon>
#include <QPushButton>

namespace velorin {

class PicturedPush : public QPushButton {
    Q_OBJECT

public:
    /// A picture of the look by its file name, at `place` in the button. The text begins 8 px to
    /// the right of it.
    PicturedPush(const QString& text, const QString& picture, QRect place, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon picture_;
    QRect place_;
};

} // namespace velorin
