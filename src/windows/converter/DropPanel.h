// What the converter's window shows while it has no files.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace velorin {

/// A broken line around a picture, two sentences and two buttons.
class DropPanel : public QFrame {
    Q_OBJECT

public:
    explicit DropPanel(QWidget* parent);

    void setHot(bool hot); ///< while files hang over the window

    QPushButton* chooseFiles;
    QPushButton* chooseFolder;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QLabel* heading_;
    QLabel* note_;
    QRect picture_;
    bool isHot_ = false;
};

} // namespace velorin
