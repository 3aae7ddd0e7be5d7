// The devices that play and record files, controlled by command strings.
#pragma once

#include "host/capture/RecordingFiles.h"
#include "host/mci/FadingStreams.h"
#include "host/mci/MciDevice.h"
#include "host/midi/SequencerPort.h"
#include "platform/Mci.h"
#include "platform/MidiOut.h"
#include "platform/OwnerThread.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace velorin::host {

class SoundEngine;

/// What the file devices need from the rest of the sound.
struct MciContext {
    SoundEngine& engine;

    /// Opens a MIDI device, as `midiOutOpen` numbers them, for a MID file. Null if that fails.
    std::function<std::unique_ptr<SequencerPort>(int device)> openSequencerPort;

    /// True if the program's MIDI device sounds outside the engine, so that only the sound card's
    /// input can record it.
    std::function<bool()> isDeviceExternal;

    /// Called before a device plays or records, since the stream may be idle. May be empty.
    std::function<void()> wake;

    RecordingFolders recordings;
};

/// Devices by their aliases: a WAV file ("waveaudio"), an MP3 file ("mpegvideo"), a MID file
/// ("sequencer"), a new recording ("new type waveaudio"). Words are case-insensitive; files are
/// found by `platform::resolve`. For the user-interface thread.
class HostMci final : public platform::Mci {
public:
    explicit HostMci(MciContext context);
    ~HostMci() override;
    HostMci(const HostMci&) = delete;
    HostMci& operator=(const HostMci&) = delete;

    std::uint32_t mciSendStringA(const std::string& command, std::string* reply) override;
    void setSequencerDevice(int device) override { sequencerDevice_ = device; }
    void noteSpelling(const std::string& name) override { spelling_ = name; }
    std::string mciGetErrorStringA(std::uint32_t code) override;

    /// True if a device plays or records, even silence.
    [[nodiscard]] bool isRunning() const;

private:
    struct Opened {
        std::unique_ptr<MciDevice> device;
        std::uint32_t code = 0; ///< why there is no device
    };

    std::uint32_t open(const std::string& text);
    [[nodiscard]] std::filesystem::path fileNamed(const std::string& name) const;
    [[nodiscard]] Opened openCapture();
    [[nodiscard]] Opened openSequencer(const std::filesystem::path& file);
    [[nodiscard]] Opened openSound(const std::filesystem::path& file, bool isMp3);
    [[nodiscard]] Opened openFile(const std::string& type, const std::filesystem::path& file);
    std::uint32_t sendToAll(const CommandText& command);

    platform::OwnerThread owner_;
    MciContext context_;
    FadingStreams fading_;
    int sequencerDevice_ = platform::MidiOut::mapper;
    std::string spelling_; ///< of the file that the user chose last
    std::map<std::string, std::unique_ptr<MciDevice>> devices_; ///< by alias, in lower case
};

} // namespace velorin::host
