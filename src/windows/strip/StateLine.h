// The line of state in the strip: the current row and what the program does, or one sentence.
#pragma once

#include "windows/strip/StateWords.h"

#include <QIcon>
#include <QWidget>

namespace velorin {

/// Painted by hand. The mouse passes through to the strip. Screen readers read it on demand; only
/// a sentence is announced by itself.
///
///     +------+  Music Box                                     line 1, 12 px, bold
///     |  1   |  Bar 5, column 17  .  0:35  .  Draw            line 2, 11 px
///     +------+
class StateLine : public QWidget {
    Q_OBJECT

public:
    explicit StateLine(QWidget* strip);

    /// In the strip of a window of that width; the line is as high as the strip.
    void place(int windowWidth);

    void showState(const StripState& state);
    [[nodiscard]] const StripState& state() const { return state_; }

    static constexpr int left = 769; ///< of the line in the strip

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintLines(QPainter& painter, const StateWords& words) const;
    void paintSentence(QPainter& painter, const QString& sentence) const;

    StripState state_;
    QIcon lock_;
};

} // namespace velorin
