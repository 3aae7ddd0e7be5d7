// Sets damaged pieces of the history aside.
#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace velorin::host {

/// A piece is copied into the folder "damaged" below the history's folder and logged on standard
/// error, once: a later run finds the copy and says nothing.
class DamagedPieces {
public:
    explicit DamagedPieces(std::filesystem::path historyFolder);

    void setAside(const std::string& pack, std::uint64_t at, std::string_view bytes);

    /// Removes the pieces of packs that are gone.
    void removeOrphans() const;

private:
    std::filesystem::path historyFolder_;
    std::filesystem::path folder_;
    std::set<std::string> logged_; ///< names of copies
};

} // namespace velorin::host
