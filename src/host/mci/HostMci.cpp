// Opens and closes devices, and passes commands on to them.
#include "host/mci/HostMci.h"

#include "host/files/HostSystemFiles.h"
#include "host/mci/CaptureDevice.h"
#include "host/mci/MciErrors.h"
#include "host/mci/MidiFilePlayer.h"
#include "host/mci/PlayerDevice.h"
#include "host/mci/SoundFilePlayer.h"
#include "host/midi/MidiFile.h"
#include "platform/PathLookup.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <string_view>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 11> verbs{
    "open", "close", "play", "record", "stop", "pause", "resume", "seek", "set", "status", "save"};

bool startsSound(const std::string& verb) {
    return verb == "play" || verb == "resume" || verb == "record";
}

// The file of a name that may be a short form.
fs::path fileOf(const std::string& name) {
    std::error_code failed;
    const fs::path ofShort = platform::resolve(pathOfShortName(name));
    return fs::exists(ofShort, failed) ? ofShort : platform::resolve(name);
}

} // namespace

HostMci::HostMci(MciContext context) : context_(std::move(context)), fading_(context_.engine) {}

HostMci::~HostMci() {
    devices_.clear(); // while `fading_`, which they use, still exists
}

std::uint32_t HostMci::mciSendStringA(const std::string& command, std::string* reply) {
    assert(owner_.isCaller());
    fading_.sweep();
    const CommandText text = readCommand(command);
    if (text.verb.empty())
        return mci::noCommand;
    if (std::find(verbs.begin(), verbs.end(), text.verb) == verbs.end())
        return mci::unknownCommand;
    if (text.verb == "open")
        return open(text.rest);
    if (text.device.empty())
        return mci::missingDevice;
    if (text.device == "all")
        return sendToAll(text);
    const auto found = devices_.find(text.device);
    if (found == devices_.end())
        return mci::notOpen;
    if (context_.wake && startsSound(text.verb))
        context_.wake();
    if (text.verb != "close")
        return found->second->carryOut(text, reply);
    devices_.erase(found);
    return mci::success;
}

std::uint32_t HostMci::sendToAll(const CommandText& command) {
    if (command.verb == "close")
        devices_.clear();
    else if (command.verb != "stop" && command.verb != "pause" && command.verb != "resume")
        return mci::cannotDo;
    for (const auto& [alias, device] : devices_)
        (void)device->carryOut(command, nullptr); // devices that do not know the command ignore it
    return mci::success;
}

std::uint32_t HostMci::open(const std::string& text) {
    const OpenText wanted = readOpen(text);
    if (wanted.file.empty())
        return mci::missingDevice;
    if (wanted.isNew && wanted.alias.empty())
        return mci::newNeedsAlias;
    const std::string alias = wanted.alias.empty() ? wordsOf(wanted.file).front() : wanted.alias;
    if (devices_.contains(alias))
        return mci::aliasInUse;
    Opened opened;
    if (wanted.isNew)
        opened = wanted.type == "waveaudio" ? openCapture() : Opened{nullptr, mci::noDriver};
    else if (wanted.type == "mpegvideo")
        opened = openFile(wanted.type, fileOf(wanted.file));
    else
        opened = openFile(wanted.type, fileNamed(wanted.file));
    if (!opened.device)
        return opened.code;
    devices_[alias] = std::move(opened.device);
    return mci::success;
}

fs::path HostMci::fileNamed(const std::string& name) const {
    std::error_code failed;
    const fs::path chosen = platform::resolve(spelling_);
    const bool isChosen = platform::lowerCase(spelling_) == platform::lowerCase(name);
    return isChosen && fs::exists(chosen, failed) ? chosen : platform::resolve(name);
}

HostMci::Opened HostMci::openFile(const std::string& type, const fs::path& file) {
    if (type != "waveaudio" && type != "sequencer" && type != "mpegvideo")
        return {nullptr, mci::noDriver};
    std::error_code failed;
    if (!fs::exists(file, failed))
        return {nullptr, mci::fileNotFound};
    return type == "sequencer" ? openSequencer(file) : openSound(file, type == "mpegvideo");
}

HostMci::Opened HostMci::openSound(const fs::path& file, bool isMp3) {
    std::shared_ptr<SoundReader> reader = isMp3 ? openMp3(file) : openWav(file);
    if (!reader)
        return {nullptr, mci::badFile};
    return {std::make_unique<PlayerDevice>(
        std::make_unique<SoundFilePlayer>(fading_, std::move(reader)))};
}

HostMci::Opened HostMci::openSequencer(const fs::path& file) {
    std::optional<MidiFile> music = readMidiFile(file);
    if (!music)
        return {nullptr, mci::badFile};
    std::unique_ptr<SequencerPort> port = context_.openSequencerPort(sequencerDevice_);
    if (!port)
        return {nullptr, mci::hardwareFailed};
    return {std::make_unique<PlayerDevice>(
        std::make_unique<MidiFilePlayer>(std::move(*music), std::move(port)))};
}

HostMci::Opened HostMci::openCapture() {
    std::unique_ptr<CaptureSource> source =
        context_.isDeviceExternal() ? captureOfCard() : captureOf(context_.engine);
    if (!source)
        return {nullptr, mci::noInput};
    return {std::make_unique<CaptureDevice>(std::move(source), context_.recordings)};
}

bool HostMci::isRunning() const {
    assert(owner_.isCaller());
    return std::any_of(devices_.begin(), devices_.end(),
                       [](const auto& entry) { return entry.second->isRunning(); });
}

std::string HostMci::mciGetErrorStringA(std::uint32_t code) {
    return std::string(mciErrorText(code));
}

} // namespace velorin::host
