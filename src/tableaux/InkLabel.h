// A label with a font and a colour of its own, whatever the style sheet says.
#pragma once

#include "score/RowColors.h"

#include <QFont>
#include <QLabel>

namespace velorin {

/// The look's font in a size and weight. Where Inter is absent, `fallbackPx` is the size of the
/// wider DejaVu Sans.
[[nodiscard]] QFont inkFont(int sizePx, int weight, int fallbackPx);

/// Transparent; lets the mouse through. One line of text, which stands in the middle of its height.
class InkLabel : public QLabel {
    Q_OBJECT

public:
    InkLabel(QWidget* parent, const QString& name, const QFont& font, Colour colour);

    /// Sets the text and makes the label as wide as it needs; the height stays.
    void setCaption(const QString& caption);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont font_;
    Colour colour_;
};

} // namespace velorin
