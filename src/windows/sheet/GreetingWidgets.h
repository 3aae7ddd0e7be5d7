// The widgets of the greeting.
#pragma once

#include "windows/sheet/GreetingLayout.h"

#include <QIcon>
#include <QPushButton>
#include <QWidget>

class QPainter;

namespace velorin {

/// The places of the greeting in a work area as it is now.
[[nodiscard]] GreetingPlaces placeGreeting(const GreetingRoom& room);

/// Paints the greeting; its rectangle covers the three tableaux.
class GreetingOverlay : public QWidget {
    Q_OBJECT

public:
    explicit GreetingOverlay(QWidget* parent);
    void setPlaces(const GreetingPlaces& places);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintNote(QPainter& painter);
    void paintBeat(QPainter& painter);
    void paintChords(QPainter& painter);

    GreetingPlaces places_;
    QIcon pen_;
    QIcon chords_;
};

/// Paper with a picture and the words. Its accessible kind is that of a push button.
class OpenSongButton : public QPushButton {
    Q_OBJECT

public:
    explicit OpenSongButton(QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon picture_;
};

} // namespace velorin
