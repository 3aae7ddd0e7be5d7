// What the threads of the converter's window share: the names of new files, and the SoundFont.
#pragma once

#include <filesystem>
#include <mutex>
#include <set>
#include <string>

namespace velorin {

/// Thread-safe.
class Workshop {
public:
    /// SoundFonts are looked for beside the program, in `programFolder`, and in the usual folders.
    explicit Workshop(std::filesystem::path programFolder);

    /// A name in `folder` that no file and no other conversion has: "boat.mp3", else "boat-2.mp3"
    /// and so on. It is taken until `release`.
    [[nodiscard]] std::filesystem::path reserve(const std::filesystem::path& folder,
                                                const std::string& stem, const std::string& ending);
    void release(const std::filesystem::path& target);

    /// The first one on the machine; empty if there is none. Looked for once.
    [[nodiscard]] std::filesystem::path soundFont();

private:
    std::filesystem::path programFolder_;
    std::mutex mutex_; ///< guards the names
    std::set<std::filesystem::path> taken_;
    std::once_flag fontSought_;
    std::filesystem::path font_;
};

} // namespace velorin
