// Translates commands into calls of a transport.
#include "host/mci/PlayerDevice.h"

#include "host/mci/MciErrors.h"

#include <algorithm>

namespace velorin::host {

std::string nameOf(TransportMode mode) {
    switch (mode) {
    case TransportMode::playing:
        return "playing";
    case TransportMode::paused:
        return "paused";
    default:
        return "stopped";
    }
}

std::uint32_t PlayerDevice::carryOut(const CommandText& command, std::string* reply) {
    const Words words = wordsOf(command.rest);
    if (command.verb == "play")
        return play(words);
    if (command.verb == "seek")
        return seek(words);
    if (command.verb == "set")
        return set(words);
    if (command.verb == "status")
        return status(words, reply);
    if (command.verb == "pause")
        transport_->pause();
    else if (command.verb == "resume")
        transport_->resume();
    else if (command.verb == "stop")
        transport_->stop();
    else
        return mci::cannotDo;
    return mci::success;
}

// Plays from the current position to the end of the file, unless the command says otherwise. A
// paused file resumes.
std::uint32_t PlayerDevice::play(const Words& words) {
    if (words.empty() && transport_->mode() == TransportMode::paused) {
        transport_->resume();
        return mci::success;
    }
    const std::int64_t length = transport_->length();
    std::int64_t from = transport_->position();
    std::int64_t to = length;
    for (std::size_t i = 0; i < words.size(); i += 2) {
        if (words[i] != "from" && words[i] != "to")
            return mci::unknownWord;
        const auto number = i + 1 < words.size() ? numberOf(words[i + 1]) : std::nullopt;
        if (!number)
            return mci::badNumber;
        const std::int64_t place = fromFormat(*number, format_, transport_->unitsPerSecond());
        (words[i] == "from" ? from : to) = place;
    }
    // By rounding, the last count of a format may be half a count after the end.
    const std::int64_t slack = fromFormat(1, format_, transport_->unitsPerSecond());
    if (from > length + slack || to > length + slack || from > to)
        return mci::outOfRange;
    to = std::min(to, length);
    transport_->play(std::min(from, to), to);
    return mci::success;
}

std::uint32_t PlayerDevice::seek(const Words& words) {
    if (words.size() != 2 || words[0] != "to")
        return mci::missingValue;
    const std::int64_t length = transport_->length();
    std::int64_t place = 0;
    if (words[1] == "end") {
        place = length;
    } else if (words[1] != "start") {
        const auto number = numberOf(words[1]);
        if (!number)
            return mci::badNumber;
        place = fromFormat(*number, format_, transport_->unitsPerSecond());
    }
    if (place > length)
        return mci::outOfRange;
    transport_->seek(place);
    return mci::success;
}

std::uint32_t PlayerDevice::set(const Words& words) {
    if (words.size() != 3 || words[0] != "time" || words[1] != "format")
        return words.empty() ? mci::missingValue : mci::unknownWord;
    const auto format = timeFormatOf(words[2]);
    if (!format || (*format != TimeFormat::milliseconds && !transport_->countsFrames()))
        return mci::badTimeFormat;
    format_ = *format;
    return mci::success;
}

std::string PlayerDevice::count(std::int64_t units) const {
    return std::to_string(toFormat(units, format_, transport_->unitsPerSecond()));
}

std::uint32_t PlayerDevice::status(const Words& words, std::string* reply) {
    const std::string item = words.empty() ? std::string() : words[0];
    if (item == "length")
        return answer(reply, count(transport_->length()));
    if (item == "position")
        return answer(reply, count(transport_->position()));
    if (item == "mode")
        return answer(reply, nameOf(transport_->mode()));
    if (item == "ready")
        return answer(reply, "true");
    if (item == "time")
        return answer(reply, nameOf(format_));
    if (item == "number" || item == "current")
        return answer(reply, "1"); // a file has one track
    return item.empty() ? mci::missingValue : mci::unknownWord;
}

} // namespace velorin::host
