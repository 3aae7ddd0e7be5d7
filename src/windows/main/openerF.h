// `openerF`, the splash: shows the program's picture while the main window loads.
#pragma once

#include <QImage>
#include <QWidget>

#include <future>

namespace velorin {

struct FrameState;

class openerF : public QWidget {
    Q_OBJECT

public:
    explicit openerF(FrameState& frames);

    /// Moves it to the middle of a screen of that size, in pixels.
    void centreOn(int screenWidth, int screenHeight);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage picture_;              ///< null until the first paint
    std::future<QImage> drawing_; ///< a thread draws it while the window opens
};

} // namespace velorin
