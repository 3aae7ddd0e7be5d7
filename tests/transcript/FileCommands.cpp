// Commands on files: write, bytes, readonly, text, hex, size.
#include "Answers.h"
#include "Commands.h"
#include "FileContents.h"
#include "Runner.h"

#include "platform/PathLookup.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <iterator>
#include <ostream>
#include <system_error>

namespace transcript {

namespace fs = std::filesystem;

namespace {

void put(Runner& runner, const std::string& name, const std::string& content) {
    const fs::path path = platform::resolve(runner.path(name));
    std::error_code ignored;
    fs::create_directories(path.parent_path(), ignored);
    const auto stream = runner.host.files.openForOutput(path.string());
    if (stream == nullptr || !(*stream << content << std::flush))
        throw CommandError("cannot write " + name);
}

/// "0A" or "00x5000".
void appendBytes(std::string& content, const std::string& word) {
    const std::size_t times = word.find('x');
    const std::string pair = word.substr(0, times);
    unsigned byte = 0;
    const auto [stop, error] = std::from_chars(pair.data(), pair.data() + pair.size(), byte, 16);
    if (pair.size() != 2 || error != std::errc() || stop != pair.data() + 2)
        throw CommandError("no byte: " + word);
    const int count =
        times == std::string::npos ? 1 : numberBetween(word.substr(times + 1), 0, 100'000'000);
    content.append(static_cast<std::size_t>(count), static_cast<char>(byte));
}

Lines write(Runner& runner, const Words& words) {
    expectWords(words, 2);
    put(runner, words[0], words[1]);
    return {};
}

Lines bytes(Runner& runner, const Words& words) {
    if (words.empty())
        throw CommandError("too few words");
    std::string content;
    for (std::size_t i = 1; i < words.size(); ++i)
        appendBytes(content, words[i]);
    put(runner, words[0], content);
    return {};
}

Lines readonly(Runner& runner, const Words& words) {
    expectWords(words, 1);
    runner.host.files.makeReadOnly(runner.path(words[0]));
    return {};
}

/// The lines of a file with visible line ends: "-1\r\n" as six characters.
Lines text(Runner& runner, const Words& words) {
    expectWords(words, 1);
    const std::string content = contentOf(runner, words[0]);
    Lines lines;
    std::string line;
    for (std::size_t i = 0; i < content.size(); ++i) {
        const char letter = content[i];
        const bool pair = letter == '\r' && i + 1 < content.size() && content[i + 1] == '\n';
        if (letter == '\0') {
            line += "\\0";
        } else if (letter == '\n' || letter == '\r') {
            line += pair ? "\\r\\n" : letter == '\n' ? "\\n" : "\\r";
            lines.push_back(std::exchange(line, {}));
            i += pair ? 1 : 0;
        } else {
            line += letter;
        }
    }
    if (!line.empty())
        lines.push_back(line);
    return lines;
}

Lines hex(Runner& runner, const Words& words) {
    if (words.size() == 2)
        throw CommandError("too few words");
    expectWords(words, 1, 3);
    std::string content = contentOf(runner, words[0]);
    if (words.size() == 3) {
        const std::size_t from = static_cast<std::size_t>(numberBetween(words[1], 0, INT32_MAX));
        const std::size_t count = static_cast<std::size_t>(numberBetween(words[2], 0, INT32_MAX));
        content = from < content.size() ? content.substr(from, count) : "";
    }
    constexpr std::size_t perLine = 32;
    Lines lines;
    for (std::size_t i = 0; i < content.size(); i += perLine)
        lines.push_back(hexOf(std::string_view(content).substr(i, perLine)));
    return lines;
}

Lines size(Runner& runner, const Words& words) {
    expectWords(words, 1);
    const fs::path path = platform::resolve(runner.path(words[0]));
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return {"none"};
    return {std::to_string(fs::file_size(path, error))};
}

} // namespace

std::string contentOf(Runner& runner, const std::string& word) {
    const auto stream = runner.host.files.openForInput(runner.path(word));
    if (stream == nullptr)
        throw CommandError("cannot read " + word);
    return {std::istreambuf_iterator<char>(*stream), {}};
}

std::span<const Command> fileCommands() {
    static constexpr std::array commands{
        Command{"write", write},     Command{"bytes", bytes}, Command{"readonly", readonly},
        Command{"text", text, true}, Command{"hex", hex},     Command{"size", size},
    };
    return commands;
}

} // namespace transcript
