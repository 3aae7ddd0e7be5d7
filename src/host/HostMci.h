// The layer of devices that play and record files, spoken to in command strings.
#pragma once

#include "host/mci/FadingStreams.h"
#include "host/mci/MciDevice.h"
#include "host/mci/RecordingFiles.h"
#include "host/mci/SequencerPort.h"
#include "platform/Mci.h"
#include "platform/MidiOut.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace velorin::host {

class SoundEngine;

/// What the file devices need of the rest of the sound.
struct MciSurroundings {
    SoundEngine& engine;

    /// Opens a MIDI device, as `midiOutOpen` numbers them, for a MID file; null if it cannot be
    /// had.
    std::function<std::unique_ptr<SequencerPort>(int device)> openSequencerPort;

    /// Whether the program's MIDI device is outside the engine, so that only the sound card's input
    /// hears it.
    std::function<bool()> soundsOutside;

    /// Called before a device plays or records: the stream may rest. May be empty.
    std::function<void()> wake;

    RecordingFolders recordings;
};

/// Devices by their aliases: a WAV file ("waveaudio"), an MP3 file ("mpegvideo"), a MID file
/// ("sequencer"), a new recording ("new type waveaudio"). Words do not mind case; names of files
/// are found as `platform::resolve` finds them. For the user-interface thread.
class HostMci final : public platform::Mci {
public:
    explicit HostMci(MciSurroundings surroundings);
    ~HostMci() override;
    HostMci(const HostMci&) = delete;
    HostMci& operator=(const HostMci&) = delete;

    std::uint32_t mciSendStringA(const std::string& command, std::string* reply) override;
    void setSequencerDevice(int device) override { sequencerDevice_ = device; }
    void noteSpelling(const std::string& name) override { spelling_ = name; }
    std::string mciGetErrorStringA(std::uint32_t code) override;

    /// Whether a device plays or records, be it silence.
    [[nodiscard]] bool isRunning() const;

private:
    struct Opened {
        std::unique_ptr<MciDevice> device;
        std::uint32_t code = 0; ///< why there is none
    };

    std::uint32_t open(const std::string& text);
    [[nodiscard]] std::filesystem::path fileNamed(const std::string& name) const;
    [[nodiscard]] Opened openCapture();
    [[nodiscard]] Opened openSequencer(const std::filesystem::path& file);
    [[nodiscard]] Opened openSound(const std::filesystem::path& file, bool isMp3);
    [[nodiscard]] Opened openFile(const std::string& type, const std::filesystem::path& file);
    std::uint32_t sendToAll(const CommandText& command);

    MciSurroundings surroundings_;
    FadingStreams fading_;
    int sequencerDevice_ = platform::MidiOut::mapper;
    std::string spelling_; ///< of the file that the user chose last
    std::map<std::string, std::unique_ptr<MciDevice>> devices_; ///< by alias, in lower case
};

} // namespace velorin::host
