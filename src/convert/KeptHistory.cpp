// Lists entries, and finds the score of one.
#include "convert/KeptHistory.h"

#include <algorithm>
#include <ctime>

namespace velorin::convert {

namespace {

std::string localTime(std::int64_t us) {
    constexpr std::int64_t usPerSecond = 1'000'000;
    const auto moment = static_cast<std::time_t>(us / usPerSecond);
    std::tm local{};
    localtime_r(&moment, &local);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local)};
}

/// Names come from the user: they must not move the cursor of a terminal.
std::string withoutControls(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
    return text;
}

} // namespace

KeptHistory::KeptHistory(const std::filesystem::path& folder)
    : reader_(folder,
              [this](const std::string&, std::uint64_t, std::string_view) { ++damagedPieces_; }),
      entries_(reader_.entries()) {}

std::string KeptHistory::list() const {
    const std::size_t width = std::to_string(entries_.size()).size();
    std::string lines;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const platform::HistoryEntry& entry = entries_[i];
        const std::string number = std::to_string(i + 1);
        lines.append(width - number.size(), ' ');
        lines += number + "  " + localTime(entry.id) + "  " + withoutControls(entry.text);
        if (!entry.name.empty())
            lines += " [" + withoutControls(entry.name) + "]";
        lines += '\n';
    }
    return lines;
}

platform::Result<std::string> KeptHistory::score(int number) const {
    const std::string name = "entry " + std::to_string(number);
    if (number < 1 || static_cast<std::size_t>(number) > entries_.size()) {
        const std::string all = entries_.empty()
                                    ? ", it is empty"
                                    : ", the last one is entry " + std::to_string(entries_.size());
        return platform::Failure{"the history has no " + name + all};
    }
    const auto record = reader_.state(entries_[static_cast<std::size_t>(number) - 1].state);
    auto text = record ? host::scoreOf(*record) : std::nullopt;
    if (!text)
        return platform::Failure{name + " of the history cannot be read"};
    return std::move(*text);
}

std::string KeptHistory::damageReport() const {
    if (damagedPieces_ == 1)
        return "a damaged piece of the history is left out";
    return std::to_string(damagedPieces_) + " damaged pieces of the history are left out";
}

} // namespace velorin::convert
