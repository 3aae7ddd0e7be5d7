// Chooses the port, watches it, and hands its keys on.
#include "program/MidiKeyboard.h"

#include "platform/MidiIn.h"
#include "platform/MidiOut.h"
#include "platform/MidiStatus.h"
#include "platform/Platform.h"
#include "platform/PopupMenus.h"
#include "platform/Settings.h"
#include "session/Session.h"
#include "windows/frame/SettingValues.h"

#include <algorithm>
#include <utility>

namespace velorin {

namespace {

constexpr int checkEveryMs = 1000;

constexpr char portSetting[] = "MIDI keyboard";
constexpr char onSetting[] = "MIDI keyboard on";

using platform::controlChange, platform::noteOff, platform::noteOn;

constexpr int sustainPedal = 64;
constexpr int kindBits = 0xF0;

std::string inQuotes(const std::string& name) {
    return '"' + name + '"';
}

} // namespace

MidiKeyboard::MidiKeyboard(platform::Platform& platform, Session& session,
                           std::function<void(const std::string&)> say)
    : platform_(platform), keys_(session.studio, session.sounding), say_(std::move(say)) {
    timer_.setInterval(checkEveryMs);
    QObject::connect(&timer_, &QTimer::timeout, [this] { check(); });
}

MidiKeyboard::~MidiKeyboard() {
    if (platform_.midiIn != nullptr)
        platform_.midiIn->onMessage = nullptr;
}

void MidiKeyboard::toggle() {
    if (isOn_)
        switchOff();
    else
        switchOn();
}

void MidiKeyboard::switchOn() {
    const auto ports =
        platform_.midiIn != nullptr ? platform_.midiIn->ports() : std::vector<std::string>();
    if (ports.empty())
        return say_("No MIDI keyboard is connected. Connect one, then press Ctrl+K again.");
    const std::string port = chosenPort(ports);
    if (!port.empty())
        connectTo(port);
}

/// Empty if the user chose none.
std::string MidiKeyboard::chosenPort(const std::vector<std::string>& ports) {
    if (ports.size() == 1)
        return ports.front();
    const std::string last = platform_.settings.GetSetting(settingsSection, portSetting, {});
    const auto before = std::find(ports.begin(), ports.end(), last);
    const auto chosen = platform::chooseFrom(platform_.menus, "midiKeyboards", ports,
                                             static_cast<std::size_t>(before - ports.begin()));
    return chosen ? ports[*chosen] : std::string();
}

void MidiKeyboard::connectTo(const std::string& port) {
    if (!listenTo(port))
        return say_(inQuotes(port) + " cannot be opened. Another program may use it.");
    port_ = port;
    isOn_ = true;
    isLost_ = false;
    timer_.start();
    remember();
    say_(inQuotes(port) + " plays on the channel that is chosen. Ctrl+K switches it off.");
}

bool MidiKeyboard::listenTo(const std::string& port) {
    platform_.midiIn->onMessage = [this](const platform::MidiInMessage& message) { take(message); };
    return platform_.midiIn->open(port);
}

void MidiKeyboard::switchOff() {
    end();
    remember();
    say_("The MIDI keyboard is off.");
}

void MidiKeyboard::end() {
    timer_.stop();
    silence();
    if (platform_.midiIn != nullptr)
        platform_.midiIn->close();
    isOn_ = false;
}

void MidiKeyboard::remember() {
    platform_.settings.SaveSetting(settingsSection, portSetting, port_);
    platform_.settings.SaveSetting(settingsSection, onSetting, settingText(isOn_));
}

void MidiKeyboard::resume() {
    platform::Settings& settings = platform_.settings;
    if (platform_.midiIn == nullptr ||
        !settingBoolean(settings.GetSetting(settingsSection, onSetting, {})).value_or(false))
        return;
    port_ = settings.GetSetting(settingsSection, portSetting, {});
    isOn_ = true;
    isLost_ = true;
    isResuming_ = true;
    timer_.start();
}

void MidiKeyboard::check() {
    if (!isOn_)
        return;
    if (isLost_)
        tryAgain();
    else if (!platform_.midiIn->isConnected())
        lose();
}

void MidiKeyboard::silence() {
    keys_.releaseAll();
    if (onSilenced)
        onSilenced();
}

void MidiKeyboard::lose() {
    silence();
    platform_.midiIn->close();
    isLost_ = true;
    say_(inQuotes(port_) + " is not connected any more. It plays again when it is back.");
}

void MidiKeyboard::tryAgain() {
    const bool wasResuming = std::exchange(isResuming_, false);
    if (!listenTo(port_)) {
        if (wasResuming)
            say_(inQuotes(port_) + " is not connected. It plays as soon as it is.");
        return;
    }
    isLost_ = false;
    if (!wasResuming)
        say_(inQuotes(port_) + " is back.");
}

void MidiKeyboard::take(const platform::MidiInMessage& message) {
    const int kind = message.status & kindBits;
    if (kind == noteOn || kind == noteOff) {
        const bool isPress = kind == noteOn && message.data2 > 0;
        play(message, isPress);
        if (onKey)
            onKey(message.data1, isPress);
    } else if (kind == controlChange && message.data1 == sustainPedal && onPedal) {
        onPedal(message.data2);
    }
}

// The note sounds at a constant distance from the key, however long this thread was busy.
void MidiKeyboard::play(const platform::MidiInMessage& message, bool isPress) {
    platform_.midi.setMoment(message.counter);
    if (isPress)
        keys_.press(message.data1);
    else
        keys_.release(message.data1);
    platform_.midi.setMoment(std::nullopt);
}

} // namespace velorin
