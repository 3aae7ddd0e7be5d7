// Operations on the host's files, with simulated refusals.
#include "support/ScriptedFiles.h"

#include "platform/PathLookup.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

namespace scripted {

namespace fs = std::filesystem;

// The program lower-cases names, so the name of the folder has no capitals.
TemporaryFolder::TemporaryFolder() {
    std::random_device source;
    std::error_code error;
    for (int attempt = 0; attempt < 100; ++attempt) {
        path_ = fs::temp_directory_path() / ("velorin-" + std::to_string(source()));
        if (fs::create_directory(path_, error))
            return;
    }
    throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::unique_ptr<std::istream> ScriptedFiles::openForInput(const std::string& name) {
    const fs::path path = platform::resolve(name);
    std::error_code error;
    if (name.empty() || fs::is_directory(path, error))
        return nullptr;
    auto stream = std::make_unique<std::ifstream>(path, std::ios::binary);
    return stream->is_open() ? std::move(stream) : nullptr;
}

std::unique_ptr<std::ostream> ScriptedFiles::openForOutput(const std::string& name) const {
    const fs::path path = platform::resolveForWriting(name);
    if (name.empty() || !mayWrite(path))
        return nullptr;
    auto stream = std::make_unique<std::ofstream>(path, std::ios::binary | std::ios::trunc);
    return stream->is_open() ? std::move(stream) : nullptr;
}

std::unique_ptr<std::ostream> ScriptedFiles::openForBinary(const std::string& name) {
    return updated(name, platform::resolveForWriting(name));
}

std::unique_ptr<std::iostream> ScriptedFiles::openForUpdate(const std::string& name) {
    return updated(name, platform::resolve(name));
}

std::unique_ptr<std::iostream> ScriptedFiles::updated(const std::string& name,
                                                      const fs::path& path) const {
    std::error_code error;
    if (name.empty() || !mayWrite(path) || fs::is_directory(path, error))
        return nullptr;
    // Opening for reading too keeps the contents and creates no file.
    if (!fs::exists(path, error))
        std::ofstream(path, std::ios::binary | std::ios::app).close();
    auto stream =
        std::make_unique<std::fstream>(path, std::ios::binary | std::ios::in | std::ios::out);
    return stream->is_open() ? std::move(stream) : nullptr;
}

platform::WriteError ScriptedFiles::replace(const std::string& name, const std::string& bytes) {
    const platform::WriteError refusal = refusalOf(platform::resolveForWriting(name));
    if (refusal != platform::WriteError::none)
        return refusal;
    const auto file = openForOutput(name);
    return file && *file << bytes << std::flush ? platform::WriteError::none
                                                : platform::WriteError::other;
}

platform::WriteError ScriptedFiles::overwrite(const std::string& name, const std::string& bytes) {
    const platform::WriteError refusal = refusalOf(platform::resolveForWriting(name));
    if (refusal != platform::WriteError::none)
        return refusal;
    const auto file = openForBinary(name);
    return file && *file << bytes << std::flush ? platform::WriteError::none
                                                : platform::WriteError::other;
}

platform::WriteError ScriptedFiles::refusalOf(const fs::path& path) const {
    std::error_code error;
    if (writeError != platform::WriteError::none)
        return writeError;
    if (path.empty() || fs::is_directory(path, error))
        return platform::WriteError::notAFile;
    if (!mayWrite(path))
        return platform::WriteError::readOnly;
    const bool hasFolder = !path.has_parent_path() || fs::exists(path.parent_path(), error);
    return hasFolder ? platform::WriteError::none : platform::WriteError::folderMissing;
}

bool ScriptedFiles::canRead(const std::string& name) {
    return openForInput(name) != nullptr;
}

bool ScriptedFiles::remove(const std::string& name) {
    const fs::path path = platform::resolve(name);
    std::error_code error;
    return mayWrite(path) && fs::is_regular_file(path, error) && fs::remove(path, error);
}

bool ScriptedFiles::createFolder(const std::string& name) {
    const fs::path path = platform::resolve(name);
    std::error_code error;
    return mayWrite(path) && fs::create_directory(path, error);
}

bool ScriptedFiles::sync(const std::string& name) {
    const fs::path path = platform::resolve(name);
    std::error_code error;
    return !syncFails && mayWrite(path) && fs::exists(path, error);
}

void ScriptedFiles::makeReadOnly(const std::string& name) {
    readOnly_.push_back(platform::resolve(name).lexically_normal());
}

bool ScriptedFiles::mayWrite(const fs::path& path) const {
    const fs::path asked = path.lexically_normal();
    return std::none_of(readOnly_.begin(), readOnly_.end(), [&asked](const fs::path& locked) {
        const auto ends = std::mismatch(locked.begin(), locked.end(), asked.begin(), asked.end());
        return ends.first == locked.end();
    });
}

} // namespace scripted
