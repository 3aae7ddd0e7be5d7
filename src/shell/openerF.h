// `openerF`, the splash: the program's picture while the main window loads.
#pragma once

#include <QWidget>

namespace velorin {

struct FrameState;

class openerF : public QWidget {
    Q_OBJECT

public:
    explicit openerF(FrameState& frames);

    /// Stands in the middle of a screen of that size, in pixels.
    void centreOn(int screenWidth, int screenHeight);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace velorin
