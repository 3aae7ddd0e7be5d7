// A user who presses, drags, scrolls and types at random places of the windows, one event per
// millisecond, also while songs play and recordings run inside handlers of earlier events.
#pragma once

#include "Chance.h"
#include "RealHost.h"
#include "ScoreWatch.h"
#include "Tally.h"

#include <QEvent>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <optional>

class QFileDialog;

namespace randomly {

class RandomUser : public QObject {
public:
    /// Ends the program with its exit command after `events` more events, or when handlers are
    /// nested too deep.
    RandomUser(RealHost& host, Chance& chance, Tally& tally, long events);

    void begin();

    /// Watches the events that reach the tableau.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A place in a window.
    struct Place {
        QWidget* window = nullptr;
        QPoint point;
        QWidget* hit = nullptr; ///< the control there, or the window
    };

    void planTick();
    void tick();
    void act();
    void actInPopup(QWidget& popup);
    void actInDialog(QWidget& dialog);
    void answer(QFileDialog& dialog);
    void actOnWindows();

    [[nodiscard]] QWidget* anyWindow();
    [[nodiscard]] Place anyPlace();
    [[nodiscard]] QPoint anyPointOf(QWidget& window);
    [[nodiscard]] QWidget* anyControlOf(QWidget& window);
    [[nodiscard]] bool wouldEnd(const QWidget* control);

    void press();
    void drag();
    void release();
    void hover();
    void turnWheel();
    void typeKey(QWidget& window);
    void resize();
    void sendMouse(QEvent::Type type, QWidget& window, QPoint point, Qt::MouseButton button);
    void sendKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers);

    [[nodiscard]] bool isOnMusicBox(const Place& place) const;
    [[nodiscard]] QPoint inMusicBox(const QWidget& window, QPoint point) const;
    /// The grids are watched from here to the end of the event.
    void expect(std::optional<Grids> grids, const char* what);
    void compare();
    void look();

    RealHost& host_;
    Chance& chance_;
    Tally& tally_;
    long last_;
    bool ended_ = false;
    int depth_ = 0;
    long ticks_ = 0;
    int timestamp_ = 0;

    QPointer<QWidget> heldIn_; ///< the window of the press, until the release
    QPoint heldAt_;
    Qt::MouseButton held_ = Qt::NoButton;
    bool heldOnMusicBox_ = false;
    bool needsArrival_ = false;
    bool hasArrived_ = false; ///< whether the current press or release reached the tableau
    std::optional<DrawnNote> drawn_;

    std::optional<Grids> expected_;
    Grids before_; ///< before a gesture that has to reach the tableau
    const char* what_ = "";
};

} // namespace randomly
