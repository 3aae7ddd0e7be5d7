// A MIDI keyboard that plays on the current channel.
#pragma once

#include "playback/MidiKeys.h"

#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace platform {
struct MidiInMessage;
struct Platform;
} // namespace platform

namespace velorin {

class Session;

/// Off until the user switches it on. The settings remember the port's name and that it is on. A
/// keyboard that is unplugged is said once, and used again when it is back. User-interface thread
/// only.
class MidiKeyboard {
public:
    /// `say` shows the user a line. The platform may have no MIDI input: then no keyboard is ever
    /// found.
    MidiKeyboard(platform::Platform& platform, Session& session,
                 std::function<void(const std::string&)> say);
    ~MidiKeyboard();
    MidiKeyboard(const MidiKeyboard&) = delete;
    MidiKeyboard& operator=(const MidiKeyboard&) = delete;

    /// Switches the keyboard on or off. If there are several, a menu asks which.
    void toggle();

    /// Switches it on if it was on at the end of the last run: the first look finds it, so that the
    /// start does not wait for the MIDI system.
    void resume();

    /// Before the program ends: what it plays ends, and the settings stay.
    void end();

    [[nodiscard]] bool isOn() const { return isOn_; }

    // What is played, after it sounds. May be empty.
    std::function<void(int key, bool isPressed)> onKey; ///< keys [0, 127]
    std::function<void(int value)> onPedal;             ///< the sustain pedal, [0, 127]
    /// Keys that are down will not be released: the keyboard was switched off or is gone.
    std::function<void()> onSilenced;

    /// Looks whether the keyboard is still there, or there again. A timer calls it once a second.
    void check();

private:
    void switchOn();
    void switchOff();
    void connectTo(const std::string& port);
    [[nodiscard]] bool listenTo(const std::string& port);
    void take(const platform::MidiInMessage& message);
    void play(const platform::MidiInMessage& message, bool isPress);
    void silence();
    void lose();
    void tryAgain();
    [[nodiscard]] std::string chosenPort(const std::vector<std::string>& ports);
    void remember();

    platform::Platform& platform_;
    MidiKeys keys_;
    std::function<void(const std::string&)> say_;
    QTimer timer_;
    std::string port_; ///< the name of the last keyboard; empty before the first
    bool isOn_ = false;
    bool isLost_ = false;     ///< on, but the keyboard is not there
    bool isResuming_ = false; ///< on since the last run, and not looked for yet
};

} // namespace velorin
