// The tool windows around the main window: they go and come with it, keep the order in which they
// lie, stand beside one another at first, and come back when their screen goes away.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QScreen;

namespace platform {
class Desktop;
} // namespace platform

namespace velorin {

class Program;
class ToolFrame;

/// One for the program, which tells it what happens to the windows. Knows them by their names, so
/// that a window may be closed and made anew at any time.
class WindowGroup : public QObject {
    Q_OBJECT

public:
    WindowGroup(Program& program, platform::Desktop& desktop);

    /// A tool window was shown or became the active one, and so lies above the others.
    void noteHighest(const QString& name);
    /// The tool windows by their names, the lowest first. One that was never used lies below.
    [[nodiscard]] const QStringList& order() const { return order_; }

    /// The main window was minimised: the tool windows that are on the screen go.
    void hideWithMain();
    /// It came back: those come that went with it, unless they were closed meanwhile.
    void showWithMain();

    /// A window that stands where nobody has put it moves beside the others, if it would lie over
    /// one of them and there is room.
    void standBeside(ToolFrame& window);

    /// Whatever no screen shows any more comes into the nearest one.
    void comeIntoReach();

private:
    void watch(QScreen* screen);
    void lookSoon();

    Program& program_;
    platform::Desktop& desktop_;
    QStringList order_;
    QStringList gone_; ///< with the main window, the lowest first
    bool looksSoon_ = false;
};

} // namespace velorin
