// Parses command strings. A file name may hold anything, so the words around it are taken off
// first.
#include "host/mci/CommandText.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <set>

namespace velorin::host {

using platform::lowerCase;
using platform::trimBlanks;

namespace {

// Removes and returns the first word.
std::string takeFirst(std::string& text) {
    text = trimBlanks(text);
    const std::size_t end = std::min(text.find(' '), text.size());
    std::string word = text.substr(0, end);
    text.erase(0, end);
    return word;
}

// Removes and returns the last word.
std::string takeLast(std::string& text) {
    text = trimBlanks(text);
    const std::size_t blank = text.rfind(' ');
    const std::size_t begin = blank == std::string::npos ? 0 : blank + 1;
    std::string word = text.substr(begin);
    text.erase(begin);
    return word;
}

std::string withoutQuotes(const std::string& text) {
    std::string name = trimBlanks(text);
    if (name.size() >= 2 && name.front() == '"' && name.back() == '"')
        return name.substr(1, name.size() - 2);
    return name;
}

/// Removes known pairs of words from the end of an "open" command.
class Endings {
public:
    explicit Endings(std::vector<std::string> known) : known_(std::move(known)) {}

    void takeFrom(std::string& text, OpenText& open) {
        for (;;) {
            std::string before = text;
            const std::string value = lowerCase(takeLast(before));
            const std::string key = lowerCase(takeLast(before));
            const bool isKnown = std::find(known_.begin(), known_.end(), key) != known_.end();
            if (value.empty() || !isKnown || !seen_.insert(key).second)
                return;
            text = before;
            if (key == "alias")
                open.alias = value;
            if (key == "type")
                open.type = value;
        }
    }

private:
    std::vector<std::string> known_;
    std::set<std::string> seen_; ///< a second one of a kind is part of the name
};

constexpr std::array<std::string_view, 3> typesBeforeMark{"waveaudio", "sequencer", "mpegvideo"};

} // namespace

CommandText readCommand(std::string_view command) {
    std::string rest(command);
    CommandText text;
    text.verb = lowerCase(takeFirst(rest));
    if (text.verb == "open") {
        text.rest = trimBlanks(rest);
        return text;
    }
    text.device = lowerCase(takeFirst(rest));
    text.rest = trimBlanks(rest);
    return text;
}

OpenText readOpen(std::string_view written) {
    std::string text = trimBlanks(written);
    OpenText open;
    const std::size_t mark = text.find('!');
    if (mark != std::string::npos) {
        const std::string type = lowerCase(text.substr(0, mark));
        if (std::find(typesBeforeMark.begin(), typesBeforeMark.end(), type) !=
            typesBeforeMark.end()) {
            text.erase(0, mark + 1);
            Endings({"alias"}).takeFrom(text, open);
            open.type = type;
            open.file = withoutQuotes(text);
            return open;
        }
    }
    Endings({"alias", "type", "parent", "style"}).takeFrom(text, open);
    open.file = withoutQuotes(text);
    open.isNew = lowerCase(open.file) == "new";
    return open;
}

std::vector<std::string> wordsOf(std::string_view written) {
    std::string text(written);
    std::vector<std::string> words;
    for (std::string word = takeFirst(text); !word.empty(); word = takeFirst(text))
        words.push_back(lowerCase(word));
    return words;
}

std::optional<std::int64_t> numberOf(std::string_view word) {
    constexpr std::size_t mostDigits = 15;
    if (word.empty() || word.size() > mostDigits)
        return std::nullopt;
    std::int64_t number = 0;
    for (const char digit : word) {
        if (digit < '0' || digit > '9')
            return std::nullopt;
        number = number * 10 + (digit - '0');
    }
    return number;
}

} // namespace velorin::host
