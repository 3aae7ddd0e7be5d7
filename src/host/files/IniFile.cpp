// Reads and changes an INI file line by line.
#include "host/files/IniFile.h"

#include "platform/Text.h"

#include <algorithm>
#include <vector>

namespace velorin::host {

namespace {

using platform::lowerCase;
using platform::trimBlanks;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string line = text.substr(at, end - at);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(std::move(line));
        at = end + 1;
    }
    return lines;
}

bool isAnySection(const std::string& line) {
    return trimBlanks(line).starts_with('[');
}

bool isSection(const std::string& line, const std::string& section) {
    const std::string name = trimBlanks(line);
    return name.size() == section.size() + 2 && name.front() == '[' && name.back() == ']' &&
           lowerCase(name.substr(1, section.size())) == lowerCase(section);
}

bool isKey(const std::string& line, const std::string& key) {
    const std::size_t equals = line.find('=');
    return equals != std::string::npos &&
           lowerCase(trimBlanks(line.substr(0, equals))) == lowerCase(key);
}

struct Place {
    std::size_t key = npos;
    std::size_t sectionEnd = npos; ///< the line after the section's last

    static constexpr std::size_t npos = static_cast<std::size_t>(-1);
};

Place find(const std::vector<std::string>& lines, const std::string& section,
           const std::string& key) {
    std::size_t at = 0;
    while (at < lines.size() && !isSection(lines[at], section))
        ++at;
    if (at == lines.size())
        return {};
    Place place;
    for (++at; at < lines.size() && !isAnySection(lines[at]); ++at) {
        if (place.key == Place::npos && isKey(lines[at], key))
            place.key = at;
    }
    place.sectionEnd = at;
    return place;
}

} // namespace

std::optional<std::string> iniValue(const std::string& text, const std::string& section,
                                    const std::string& key) {
    const std::vector<std::string> lines = linesOf(text);
    const Place place = find(lines, section, key);
    if (place.key == Place::npos)
        return std::nullopt;
    const std::string& line = lines[place.key];
    return trimBlanks(line.substr(line.find('=') + 1));
}

std::string withIniValue(const std::string& text, const std::string& section,
                         const std::string& key, const std::string& value) {
    std::vector<std::string> lines = linesOf(text);
    const Place place = find(lines, section, key);
    const std::string line = key + "=" + value;
    if (place.key != Place::npos) {
        lines[place.key] = line;
    } else if (place.sectionEnd != Place::npos) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place.sectionEnd), line);
    } else {
        lines.push_back("[" + section + "]");
        lines.push_back(line);
    }
    std::string all;
    for (const std::string& each : lines)
        all += each + "\r\n";
    return all;
}

} // namespace velorin::host
