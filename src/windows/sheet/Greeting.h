// The greeting on the empty sheet at the start: where to click for a note, a beat and a chord, and
// a button that opens a song.
#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>

class QWidget;

namespace velorin {

class GreetingOverlay;
class OpenSongButton;
class Picmain;
struct Score;

/// Widgets above the tableaux, and so in no picture. They take no mouse except on the button. They
/// go at the first press on the main window, at a key of the toolbars, and when the score changes.
/// User-interface thread only.
class Greeting : public QObject {
    Q_OBJECT

public:
    /// Greets at once. All outlive this.
    Greeting(QWidget& mainWindow, Picmain& area, const Score& score);
    ~Greeting() override;

    std::function<void()> onOpenSong; ///< the button was pressed; the greeting is gone

    /// Removes the greeting. A second call does nothing.
    void end();
    /// Call it when a tableau was drawn: ends the greeting if the score has changed.
    void sheetDrawn();
    [[nodiscard]] bool isShown() const { return overlay_ != nullptr; }
    /// What a screen reader adds to the main window's name.
    [[nodiscard]] static QString spoken();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool endsGreeting(const QObject& watched, const QEvent& event) const;
    void place();

    QWidget& mainWindow_;
    Picmain& area_;
    const Score& score_;
    std::uint64_t changes_;
    GreetingOverlay* overlay_ = nullptr; ///< both belong to the work area; null when they are gone
    OpenSongButton* open_ = nullptr;
};

} // namespace velorin
