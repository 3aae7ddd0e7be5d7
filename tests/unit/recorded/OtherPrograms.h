// Runs other programs that read a file.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace velorin::test {

inline bool isThere(const std::string& program) {
    return std::system(("command -v " + program + " > /dev/null 2>&1").c_str()) == 0;
}

/// What a command prints on standard output, without the last line's end.
inline std::string told(const std::string& command) {
    std::string text;
    FILE* const pipe = popen(command.c_str(), "r");
    if (!pipe)
        return text;
    std::array<char, 4096> piece{};
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), pipe))
        text.append(piece.data(), count);
    pclose(pipe);
    if (text.ends_with('\n'))
        text.pop_back();
    return text;
}

inline std::string quoted(const std::string& name) {
    return "'" + name + "'";
}

} // namespace velorin::test
