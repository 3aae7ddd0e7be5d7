// The title in the title bar of the main window: the score and whether it is saved.
#pragma once

#include <QLabel>

namespace velorin {

/// `text` keeps the described caption "Velorin"; what is drawn is set by `showScore`.
///
/// Rule: the caption does not follow the score. Held by the unit test TitleTest.DrawnCaptionStays.
class TitleLabel : public QLabel {
    Q_OBJECT

public:
    TitleLabel(const QString& caption, QWidget* parent);

    /// `name` is that of the score without its ending; empty for the sheet of the start.
    void showScore(const QString& name, bool isUnsaved);

    /// The whole title, "paper-boat \u2022 - Velorin".
    [[nodiscard]] static QString titleOf(const QString& name, bool isUnsaved);
    /// The title in `widthPx`: a long name is elided in its middle, the mark and the program stay.
    [[nodiscard]] QString shown(int widthPx) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString name_;
    bool isUnsaved_ = false;
};

} // namespace velorin
