// The progress bar: a track with round ends, and the bar in it.
#pragma once

#include <QLabel>
#include <QWidget>

namespace velorin {

/// The track; it is what a screen reader reads.
class ProgressTrack : public QWidget {
    Q_OBJECT

public:
    explicit ProgressTrack(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The bar in its track. At a width of 1 it is empty.
class ProgressBar : public QLabel {
    Q_OBJECT

public:
    /// Announces its value to screen readers in steps of `stepPercent` [1, 100].
    explicit ProgressBar(ProgressTrack* track, int stepPercent = 1);
    void setBarWidth(int widthPx);
    void setShare(double share); ///< of the track, [0, 1]

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int stepPercent_;
};

} // namespace velorin
