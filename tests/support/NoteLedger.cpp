// Matches the note-ons and note-offs of a log.
#include "support/NoteLedger.h"

#include <sstream>

namespace scripted {

namespace {

constexpr int percussionChannel = 9;
constexpr unsigned kindBits = 0xF0;
constexpr unsigned noteOn = 0x90;
constexpr unsigned noteOff = 0x80;

} // namespace

void NoteLedger::read(const std::vector<std::string>& log) {
    if (taken_ > log.size())
        taken_ = 0;
    for (; taken_ < log.size(); ++taken_)
        takeLine(log[taken_]);
}

// "0.120 90 43 7F" or "0.120 close".
void NoteLedger::takeLine(const std::string& line) {
    std::istringstream words(line);
    std::string time;
    std::string first;
    words >> time >> first;
    if (first == "close")
        sounding_.clear();
    if (first.size() != 2)
        return;
    unsigned key = 0;
    unsigned velocity = 0;
    words >> std::hex >> key >> velocity;
    const auto status = static_cast<unsigned>(std::stoul(first, nullptr, 16));
    const Note note{static_cast<int>(status & ~kindBits), static_cast<int>(key)};
    const unsigned kind = status & kindBits;
    if (kind == noteOff || (kind == noteOn && velocity == 0)) {
        sounding_.erase(note);
    } else if (kind == noteOn) {
        ++sounding_[note];
        ++begun_;
    }
}

std::vector<std::string> NoteLedger::left() const {
    return listed(true);
}

std::vector<std::string> NoteLedger::leftMelodic() const {
    return listed(false);
}

std::vector<std::string> NoteLedger::listed(bool withPercussion) const {
    std::vector<std::string> notes;
    for (const auto& [note, times] : sounding_) {
        if (!withPercussion && note.first == percussionChannel)
            continue;
        std::string text = std::to_string(note.first) + ":" + std::to_string(note.second);
        if (times > 1)
            text += " x" + std::to_string(times);
        notes.push_back(text);
    }
    return notes;
}

} // namespace scripted
