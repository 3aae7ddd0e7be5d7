// Stops the stream while nothing sounds and the user is away, and checks the sound card.
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

namespace velorin::host {

class HostSound;

/// The stream starts again as soon as the pointer enters a window, well before a press that sounds.
class IdleStream final : public QObject {
public:
    /// `isPlaying` returns true while a song plays: the stream stays on during its rests.
    IdleStream(HostSound& sound, std::function<bool()> isPlaying);
    ~IdleStream() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setInterval();

    HostSound& sound_;
    std::function<bool()> isPlaying_;
    QTimer check_;
};

} // namespace velorin::host
