// `Shape2`, the ground behind the bar numbers.
#pragma once

#include "model/RowColors.h"

#include <QFont>
#include <QWidget>

#include <vector>

namespace velorin {

constexpr Colour barNumberColour = rgb(192, 255, 255);

/// The font of the labels and of the painted numbers.
[[nodiscard]] QFont barNumberFont();

/// Paints the numbers of the bars that have no label. Mouse events pass through it.
class Ruler : public QWidget {
    Q_OBJECT

public:
    struct Number {
        int left;   ///< in pixels of the parent, as a label's
        int number; ///< the column, counted from 1
        bool operator==(const Number&) const = default;
    };

    explicit Ruler(QWidget* parent);

    /// Replaces the painted numbers. One that does not fit at the right end is not painted.
    void setNumbers(std::vector<Number> numbers);
    [[nodiscard]] const std::vector<Number>& numbers() const { return numbers_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<Number> numbers_;
    QFont font_;
};

} // namespace velorin
