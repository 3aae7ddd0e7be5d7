// The controls of the Recording Toolbar that paint themselves or handle their own clicks: the
// record image, the label that is a button, the status text.
#pragma once

#include "recording/RecordDesk.h"

#include <QAbstractButton>
#include <QBasicTimer>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include <array>

namespace velorin {

/// `rec`: the record button as a picture. It looks pressed while the mouse or the space key holds
/// it.
class RecordImage : public QAbstractButton {
    Q_OBJECT

public:
    explicit RecordImage(QWidget* parent);
    void show(RecordPicture picture); ///< what it shows while it is not pressed
    [[nodiscard]] RecordPicture picture() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::array<QIcon, 3> pictures_; ///< in the order of `RecordPicture`
    RecordPicture picture_ = RecordPicture::RecUP;
};

/// A label drawn as a push button. Clicked by mouse or by key.
class LabelButton : public QLabel {
    Q_OBJECT

public:
    LabelButton(const QString& text, QWidget* parent);

Q_SIGNALS:
    void clicked();

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// `Status`: a caption that may change thousands of times a second. It is painted ten times a
/// second at most, as the bar of the panel is, so the progress display does not slow down an
/// encoding.
class StatusLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QString caption READ caption)

public:
    explicit StatusLabel(QWidget* parent);
    void setCaption(const QString& caption);
    [[nodiscard]] const QString& caption() const { return caption_; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    QString caption_;
    QBasicTimer pause_; ///< while it runs nothing is painted
};

/// The tip of a box with a file's name is the path on this machine, made when the pointer rests on
/// the box. The name itself may have another separator, and may be longer than the box.
void showPathInTip(QLineEdit& box);

} // namespace velorin
