// The sequencer's thread: sends events when they are due and sleeps in between.
#include "host/mci/MidiFilePlayer.h"

#include "platform/MidiStatus.h"

#include <algorithm>
#include <chrono>

namespace velorin::host {

namespace {

using platform::controlChange, platform::noteOff, platform::noteOn;

constexpr std::uint8_t sustainPedal = 64;
constexpr std::uint8_t allNotesOff = 123;

// Callers poll position and length in milliseconds to detect the end, and take a length of 0 for a
// missing device. So a file whose events are all at its beginning needs a length too.
constexpr std::int64_t shortestUs = 1000;

ShortMessage controller(int channel, std::uint8_t number, std::uint8_t value) {
    return {{static_cast<std::uint8_t>(controlChange | channel), number, value}, 3};
}

} // namespace

MidiFilePlayer::MidiFilePlayer(MidiFile file, std::unique_ptr<SequencerPort> port)
    : file_(std::move(file)), port_(std::move(port)) {
    file_.lengthUs = std::max(file_.lengthUs, shortestUs);
    thread_ = std::thread([this] { run(); });
}

MidiFilePlayer::~MidiFilePlayer() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

std::size_t MidiFilePlayer::firstEventAt(std::int64_t timeUs) const {
    const auto first = std::lower_bound(
        file_.events.begin(), file_.events.end(), timeUs,
        [](const MidiFile::Event& event, std::int64_t time) { return event.timeUs < time; });
    return static_cast<std::size_t>(first - file_.events.begin());
}

std::int64_t MidiFilePlayer::placeNow() const {
    return counts_ ? std::min((port_->nowNs() - startNs_) / 1000, toUs_) : placeUs_;
}

std::int64_t MidiFilePlayer::position() {
    const std::lock_guard lock(mutex_);
    return placeNow();
}

TransportMode MidiFilePlayer::mode() {
    const std::lock_guard lock(mutex_);
    return mode_;
}

void MidiFilePlayer::play(std::int64_t from, std::int64_t to) {
    {
        const std::lock_guard lock(mutex_);
        haltAt(from, TransportMode::playing);
        chases_ = true;
        toUs_ = to;
    }
    changed_.notify_all();
}

void MidiFilePlayer::pause() {
    const std::lock_guard lock(mutex_);
    if (mode_ == TransportMode::playing)
        haltAt(placeNow(), TransportMode::paused);
}

void MidiFilePlayer::resume() {
    {
        const std::lock_guard lock(mutex_);
        if (mode_ == TransportMode::paused)
            mode_ = TransportMode::playing;
    }
    changed_.notify_all();
}

void MidiFilePlayer::stop() {
    const std::lock_guard lock(mutex_);
    haltAt(placeNow(), TransportMode::stopped);
}

void MidiFilePlayer::seek(std::int64_t position) {
    const std::lock_guard lock(mutex_);
    haltAt(position, TransportMode::stopped);
    chases_ = true;
}

// Time stops here. Events that were sent ahead of their time will be sent again.
void MidiFilePlayer::haltAt(std::int64_t placeUs, TransportMode mode) {
    if (counts_)
        releaseNotes();
    counts_ = false;
    placeUs_ = placeUs;
    mode_ = mode;
    next_ = firstEventAt(placeUs);
}

void MidiFilePlayer::send(std::int64_t dueNs, const ShortMessage& message) {
    if (message.kind() == controlChange && message.byte[1] == sustainPedal)
        pedal_[message.channel()] = message.byte[2];
    port_->send(dueNs, message);
}

// Also lifts the pedals; `pedal_` keeps their values.
void MidiFilePlayer::releaseNotes() {
    const std::int64_t due = port_->nowNs() + port_->leadNs();
    for (int channel = 0; channel < 16; ++channel) {
        if (pedal_[channel] > 0)
            port_->send(due, controller(channel, sustainPedal, 0));
        port_->send(due, controller(channel, allNotesOff, 0));
    }
}

void MidiFilePlayer::restorePedals() {
    for (int channel = 0; channel < 16; ++channel) {
        const std::uint8_t value = pedal_[channel];
        if (value > 0)
            port_->send(startNs_, controller(channel, sustainPedal, value));
    }
}

// Sends the programs and controllers before the place, so that the file sounds as if it had been
// played from its beginning.
void MidiFilePlayer::chase(std::int64_t placeUs) {
    pedal_.fill(0);
    const std::size_t end = firstEventAt(placeUs);
    for (std::size_t i = 0; i < end; ++i) {
        const ShortMessage& message = file_.events[i].message;
        if (message.kind() != noteOn && message.kind() != noteOff)
            send(startNs_, message);
    }
}

void MidiFilePlayer::begin() {
    startNs_ = port_->nowNs() + port_->leadNs() - placeUs_ * 1000;
    counts_ = true;
    if (chases_)
        chase(placeUs_);
    else
        restorePedals();
    chases_ = false;
}

// One round: sends what is due, then waits for the next event.
void MidiFilePlayer::playOn(Lock& lock) {
    const std::int64_t lead = port_->leadNs();
    const std::int64_t now = port_->nowNs();
    while (next_ < file_.events.size() && file_.events[next_].timeUs < toUs_) {
        const std::int64_t due = startNs_ + file_.events[next_].timeUs * 1000;
        if (due > now + lead)
            break;
        send(due, file_.events[next_].message);
        ++next_;
    }
    const std::int64_t endNs = startNs_ + toUs_ * 1000;
    if (now >= endNs) {
        // A message at the very end is part of the file.
        for (; next_ < file_.events.size() && toUs_ == file_.lengthUs; ++next_)
            send(endNs, file_.events[next_].message);
        haltAt(toUs_, TransportMode::stopped);
        return;
    }
    std::int64_t wake = endNs;
    if (next_ < file_.events.size() && file_.events[next_].timeUs < toUs_)
        wake = std::min(wake, startNs_ + file_.events[next_].timeUs * 1000 - lead);
    port_->waitUntil(wake, changed_, lock);
}

void MidiFilePlayer::run() {
    Lock lock(mutex_);
    while (!ending_) {
        if (mode_ != TransportMode::playing)
            changed_.wait(lock);
        else if (counts_)
            playOn(lock);
        else if (port_->isReady())
            begin();
        else
            changed_.wait_for(lock, std::chrono::milliseconds(2));
    }
    if (counts_)
        releaseNotes();
}

} // namespace velorin::host
