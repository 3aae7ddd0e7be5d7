// The form of a kept text on the disk.
#include "host/KeptFile.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <regex>
#include <tuple>
#include <utility>

namespace velorin::host {

namespace {

constexpr std::string_view sealWord = "kept ";
constexpr std::string_view lineEnd = "\r\n";

/// FNV-1a: it need not withstand an enemy, only a cut or a block of zeros.
std::uint64_t checkSum(std::string_view text, std::uint64_t number) {
    std::uint64_t sum = 0xcbf29ce484222325U ^ number;
    for (const char byte : text) {
        sum ^= static_cast<unsigned char>(byte);
        sum *= 0x100000001b3U;
    }
    return sum;
}

bool readNumber(std::string_view& line, std::uint64_t& number) {
    const auto result = std::from_chars(line.data(), line.data() + line.size(), number);
    if (result.ec != std::errc())
        return false;
    line.remove_prefix(static_cast<std::size_t>(result.ptr - line.data()));
    return true;
}

} // namespace

std::string sealed(const KeptText& kept) {
    std::string bytes = kept.text;
    bytes += sealWord;
    bytes += std::to_string(kept.number);
    bytes += ' ';
    bytes += std::to_string(checkSum(kept.text, kept.number));
    bytes += lineEnd;
    return bytes;
}

std::optional<KeptText> unsealed(std::string_view bytes) {
    if (!bytes.ends_with(lineEnd))
        return std::nullopt;
    const std::size_t seal = bytes.rfind(sealWord);
    if (seal == std::string_view::npos)
        return std::nullopt;
    const std::string_view text = bytes.substr(0, seal);
    std::string_view line = bytes.substr(seal + sealWord.size());
    std::uint64_t number = 0;
    std::uint64_t sum = 0;
    if (!readNumber(line, number) || !line.starts_with(' '))
        return std::nullopt;
    line.remove_prefix(1);
    if (!readNumber(line, sum) || line != lineEnd || sum != checkSum(text, number))
        return std::nullopt;
    return KeptText{std::string(text), number};
}

std::string nameOfMoment(const std::string& word, std::time_t moment, int count) {
    std::tm parts{};
    localtime_r(&moment, &parts);
    char name[32];
    const std::size_t length = std::strftime(name, sizeof name, " %Y-%m-%d %H-%M-%S", &parts);
    std::string whole = word + std::string(name, length);
    if (count > 1)
        whole += " (" + std::to_string(count) + ")";
    return whole;
}

std::string recoveredName(std::time_t moment, int count) {
    return nameOfMoment("recovered", moment, count) + ".sng";
}

// The name has the moment in local time. Where the time zone has changed since, a file that nobody
// has touched counts as the user's, which is the harmless mistake.
bool isUntouchedRecovery(const ScoreFile& file) {
    static const std::regex ours(R"((recovered \d{4}-\d\d-\d\d \d\d-\d\d-\d\d)( \(\d+\))?\.sng)");
    std::smatch parts;
    return std::regex_match(file.name, parts, ours) &&
           parts[1].str() + ".sng" == recoveredName(file.changed);
}

// The name does not tell when a file appeared: the clock may have been set back since, and a score
// may have waited long for its recovery.
std::vector<std::string> recoveredBeyond(std::vector<ScoreFile> files, std::size_t most) {
    std::erase_if(files, [](const ScoreFile& file) { return !isUntouchedRecovery(file); });
    std::sort(files.begin(), files.end(), [](const ScoreFile& one, const ScoreFile& other) {
        return std::tie(one.appearedAtNs, one.name) < std::tie(other.appearedAtNs, other.name);
    });
    files.resize(files.size() - std::min(files.size(), most));
    std::vector<std::string> names;
    for (ScoreFile& file : files)
        names.push_back(std::move(file.name));
    return names;
}

} // namespace velorin::host
