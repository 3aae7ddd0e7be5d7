// Logs messages.
#include "support/ScriptedMidi.h"

#include <cstdio>

namespace scripted {

namespace {

bool isProgramChange(unsigned status) {
    return status >= 0xC0 && status <= 0xDF;
}

} // namespace

std::string ScriptedMidi::midiOutGetDevCapsA(int index) {
    if (index < 0 || index >= midiOutGetNumDevs())
        return "";
    return devices_[static_cast<std::size_t>(index)].name;
}

// The mapper finds any device that opens, so it opens unless the list is empty.
bool ScriptedMidi::opens(int index) const {
    if (index == mapper)
        return !devices_.empty();
    const bool exists = index >= 0 && static_cast<std::size_t>(index) < devices_.size();
    return exists && !devices_[static_cast<std::size_t>(index)].fails;
}

std::uint32_t ScriptedMidi::midiOutOpen(platform::MidiOutHandle& handle, int index) {
    if (!opens(index)) {
        note("fail " + std::to_string(index));
        return 2;
    }
    handle = ++lastHandle_;
    open_.insert(handle);
    note("open " + std::to_string(index));
    return 0;
}

std::uint32_t ScriptedMidi::midiOutClose(platform::MidiOutHandle handle) {
    if (open_.erase(handle) == 0)
        return 5;
    note("close");
    return 0;
}

std::uint32_t ScriptedMidi::midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) {
    if (!open_.contains(handle))
        return 5;
    const unsigned status = message & 0xFF;
    char text[16];
    if (isProgramChange(status))
        std::snprintf(text, sizeof text, "%02X %02X", status, (message >> 8) & 0xFF);
    else
        std::snprintf(text, sizeof text, "%02X %02X %02X", status, (message >> 8) & 0xFF,
                      (message >> 16) & 0xFF);
    note(text);
    return 0;
}

void ScriptedMidi::setDevices(const std::vector<std::string>& names) {
    devices_.clear();
    for (const std::string& name : names) {
        const bool fails = name.starts_with('!');
        devices_.push_back({fails ? name.substr(1) : name, fails});
    }
}

} // namespace scripted
