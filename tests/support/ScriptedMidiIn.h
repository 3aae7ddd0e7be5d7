// A MIDI keyboard without a port: a test plugs it in and plays it.
#pragma once

#include "platform/MidiIn.h"

#include <algorithm>
#include <string>
#include <vector>

namespace scripted {

class ScriptedMidiIn final : public platform::MidiIn {
public:
    std::vector<std::string> ports() override { return names; }
    bool open(const std::string& port) override {
        opened = std::find(names.begin(), names.end(), port) != names.end() ? port : std::string();
        return !opened.empty();
    }
    void close() override { opened.clear(); }
    bool isConnected() override {
        return std::find(names.begin(), names.end(), opened) != names.end();
    }

    std::vector<std::string> names{"Keys"};
    std::string opened;
};

} // namespace scripted
