// A folder of score files on a scripted host.
#pragma once

#include "support/ScriptedPlatform.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace velorin::test {

struct ScoreFolder {
    [[nodiscard]] std::string at(const std::string& name) const {
        return (host.folder.path() / name).string();
    }
    void put(const std::string& name, const std::string& content) const {
        std::ofstream(at(name), std::ios::binary) << content;
    }
    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(at(name));
    }
    [[nodiscard]] std::string content(const std::string& name) const {
        std::ifstream file(at(name), std::ios::binary);
        if (!file)
            return "no such file";
        return {std::istreambuf_iterator<char>(file), {}};
    }

    scripted::ScriptedPlatform host;
};

} // namespace velorin::test
