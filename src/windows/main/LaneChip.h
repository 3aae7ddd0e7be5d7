// A chip of the legend beside the chord lanes.
#pragma once

#include "model/RowColors.h"

#include <QWidget>

namespace velorin {

/// Shows its lane's colour, which is also its property "backColor".
class LaneChip : public QWidget {
    Q_OBJECT

public:
    LaneChip(QWidget* parent, Colour colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor colour_;
};

} // namespace velorin
