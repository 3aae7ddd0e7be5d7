// The open list of instruments: a search, the rows, and a line that says that they can be heard.
#pragma once

#include "windows/lists/InstrumentModel.h"

#include <QLineEdit>
#include <QToolButton>

#include <functional>

namespace platform {
class Timers;
} // namespace platform

namespace velorin {

class InstrumentRows;
class InstrumentSample;

/// Above all windows until an entry is taken, Escape is pressed or something else is clicked. The
/// search has the keyboard. It is destroyed before the sample and the timers.
class InstrumentPopup : public QWidget {
    Q_OBJECT

public:
    InstrumentPopup(QWidget* field, std::vector<Instrument> instruments, InstrumentSample& sample,
                    platform::Timers& timers);
    ~InstrumentPopup() override;

    /// Opens below the field, or above it, with the entry at `place` in the middle and at the
    /// cursor; -1 for none.
    void open(int place);

    std::function<void(int place)> onTaken; ///< the list has closed already
    std::function<void()> onClosed;         ///< also runs before `onTaken`

    static constexpr int restMs = 300; ///< on an entry, before it sounds

    InstrumentModel model;
    QLineEdit* search = nullptr;
    QToolButton* clear = nullptr; ///< empties the search; shown while it has text
    InstrumentRows* rows = nullptr;

    /// What the line below the rows says.
    [[nodiscard]] QString hint() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makeSearch();
    void layOut();
    void showTyped(const QString& text);
    [[nodiscard]] bool passKey(const QKeyEvent& event);
    void moveBy(int rows);
    /// The pointer or the cursor is at this entry now.
    void restAt(int place);
    void stopSound();
    void hear(int place);
    void take(int place);

    QWidget& field_;
    InstrumentSample& sample_;
    platform::Timers& timers_;
    int restTimer_ = 0;
    int chosen_ = -1; ///< the entry of the closed list
};

} // namespace velorin
