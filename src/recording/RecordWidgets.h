// The controls of the Recording Toolbar that are painted by hand or take a click of their own: the
// record image, the label that is a button, the progress bar.
#pragma once

#include "recording/RecordDesk.h"

#include <QAbstractButton>
#include <QBasicTimer>
#include <QIcon>
#include <QLabel>
#include <QWidget>

#include <array>

namespace velorin {

/// `rec`: the record button as a picture, pressed while the mouse or the space key holds it.
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

/// A label drawn as a push button, which tells of a click, by mouse or by key.
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

/// `Status`: a caption that may change thousands of times a second. It is set out and painted at
/// most some thirty times of them, so that an encoding is not slowed down by telling how far it is.
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
    QBasicTimer pause_; ///< runs while nothing is painted
};

/// `P2`, the track of the progress bar.
class ProgressTrack : public QWidget {
    Q_OBJECT

public:
    explicit ProgressTrack(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// `L2`, the bar in its track; a width of 1 is an empty bar.
class ProgressBar : public QLabel {
    Q_OBJECT

public:
    explicit ProgressBar(ProgressTrack* track);
    void setBarWidth(int widthPx);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace velorin
