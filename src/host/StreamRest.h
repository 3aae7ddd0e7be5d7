// Lets the stream rest while nothing sounds and nobody is at the program, and looks after its card.
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

namespace velorin::host {

class HostSound;

/// The pointer reaches a window well before the press that sounds, and wakes the stream in time.
class StreamRest final : public QObject {
public:
    /// `isPlaying` tells whether a song plays, whose rests are not to be slept through.
    StreamRest(HostSound& sound, std::function<bool()> isPlaying);
    ~StreamRest() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setPace();

    HostSound& sound_;
    std::function<bool()> isPlaying_;
    QTimer look_;
};

} // namespace velorin::host
