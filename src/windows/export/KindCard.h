// A card of the Export window: one kind of file.
#pragma once

#include "windows/export/ExportKinds.h"

#include <QAbstractButton>
#include <QIcon>

#include <functional>

namespace velorin {

/// One of several options. Only the chosen card is a stop of the Tab key; arrow keys choose the
/// others.
///
///     +--------------+
///     |   picture    |   32 x 32 at (36, 12)
///     |     name     |   18 high at 48
///     |     note     |   15 high at 65
///     +--------------+   104 x 88
class KindCard : public QAbstractButton {
    Q_OBJECT

public:
    KindCard(const ExportKind& kind, QWidget* parent);

    static constexpr QSize cardSize{104, 88};

    std::function<void(int step)> onStep; ///< an arrow key: -1 to the card before, 1 to the next

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintWords(QPainter& painter) const;

    const ExportKind& kind_;
    QIcon picture_;
};

} // namespace velorin
