// A label with its own font and colour, independent of the style sheet.
#pragma once

#include "model/RowColors.h"

#include <QFont>
#include <QLabel>

namespace velorin {

/// The look's font in a size and weight. If Inter is not installed, `fallbackPx` is the size of the
/// wider DejaVu Sans.
[[nodiscard]] QFont inkFont(int sizePx, int weight, int fallbackPx);

/// Transparent. Mouse events pass through it. One line of text, vertically centred.
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
