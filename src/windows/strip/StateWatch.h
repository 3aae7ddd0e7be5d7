// Watches the program for the line of state.
#pragma once

#include "model/RowArray.h"
#include "windows/strip/StateWords.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace velorin {

class Session;
class StateLine;

/// No procedure knows of it: it looks when the message loop is about to sleep, and compares. The
/// line is painted only if its words change, at most ten times a second. Reads the values of the
/// Setup Toolbar without loading it. User-interface thread.
class StateWatch : public QObject {
    Q_OBJECT

public:
    /// Both outlive this. Looks from now on.
    StateWatch(Session& session, StateLine& line);

    /// Follows the pointer over a tableau; `box` outlives this.
    void followPointer(QWidget* box);

    /// The pen is in that column of the screen; no value if there is no pen. It counts before the
    /// pointer.
    void followPen(std::optional<int> column) { penColumn_ = column; }

    /// Shows a sentence for six seconds, or until `beginPress`. An empty one does nothing.
    void say(const std::string& sentence);
    /// The next press has begun: the sentence goes.
    void beginPress();
    /// What was chosen until now is known: no sentence about it follows.
    void takeStock();

    /// Step entry is on, with steps of so many columns; 0: it is off. The line then reports the
    /// place of the marker, where the next step is written.
    void showSteps(int columns);

    /// The song has started or has ended.
    std::function<void()> onPlayingChanged;

    /// True while a change waits for its paint.
    [[nodiscard]] bool isBehind() const { return pace_.isActive(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

    static constexpr int sentenceMs = 6000;

private:
    void look();
    void show();
    [[nodiscard]] StripState state();
    [[nodiscard]] double songSeconds();
    void noticeRow();
    void noticePlaying();
    [[nodiscard]] QString endWords() const;
    void noticeRecording();

    /// What the length of the song depends on.
    struct Song {
        std::uint64_t changes = 0;
        int tempo = 0;
        std::uint32_t hidden = 0; ///< a bit for each row
        bool operator==(const Song&) const = default;
    };
    [[nodiscard]] Song song() const;

    Session& session_;
    StateLine& line_;
    QTimer pace_;
    QTimer sentenceEnds_;
    QTimer seconds_; ///< runs during a recording
    QElapsedTimer sincePaint_;
    QElapsedTimer sinceRecording_;
    std::string sentence_;
    std::optional<int> pointerColumn_; ///< on the screen
    std::optional<int> penColumn_;     ///< the same
    Song measured_;
    double songSeconds_ = 0.0;
    int stepColumns_ = 0;
    bool wasPlaying_ = false;
    int lastRow_ = 0;
    RowArray<std::int16_t> lastInstruments_{};
    std::array<std::uint64_t, 2> lastContent_{}; ///< changes of the notes, and scores opened
};

} // namespace velorin
