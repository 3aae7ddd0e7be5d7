// A file that appears under its name only when it is whole.
#pragma once

#include <filesystem>
#include <string>

namespace velorin::convert {

/// Written beside its place under another name, and renamed at the end. Without `finish` it goes
/// away again.
class WholeFile {
public:
    explicit WholeFile(const std::filesystem::path& target);
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// The name to write to until then.
    [[nodiscard]] const std::filesystem::path& part() const { return part_; }

    /// Puts the file in its place. Returns why that failed; empty if it went well.
    [[nodiscard]] std::string finish();

private:
    std::filesystem::path target_;
    std::filesystem::path part_;
};

/// Writes a whole file. Returns why that failed; empty if it went well.
[[nodiscard]] std::string writeWhole(const std::filesystem::path& target,
                                     const std::string& content);

} // namespace velorin::convert
