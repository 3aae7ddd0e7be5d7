// Writing beside, waiting for the disk, then renaming.
#include "convert/WholeFile.h"

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

// A link keeps its place and the file behind it is replaced.
fs::path behindLinks(const fs::path& target) {
    std::error_code failed;
    const fs::path real = fs::canonical(target, failed);
    return failed ? target : real;
}

} // namespace

std::string cannotBeWritten(std::error_code why) {
    return why ? "cannot be written: " + why.message() : "cannot be written";
}

fs::path folderOf(const fs::path& target) {
    return behindLinks(target).parent_path();
}

WholeFile::WholeFile(const fs::path& target) : target_(behindLinks(target)) {}

std::string WholeFile::begin() {
    const std::error_code failed = part_.make(target_.parent_path());
    return failed ? cannotBeWritten(failed) : std::string();
}

std::string WholeFile::write(const std::string& bytes) {
    const std::error_code failed = part_.write(bytes);
    return failed ? cannotBeWritten(failed) : std::string();
}

std::string WholeFile::finish() {
    const std::error_code failed = host::replaceDurably(part_.path(), target_);
    return failed ? "cannot be put in place: " + failed.message() : std::string();
}

std::string writeWhole(const fs::path& target, const std::string& content) {
    WholeFile file(target);
    std::string problem = file.begin();
    if (problem.empty())
        problem = file.write(content);
    return problem.empty() ? file.finish() : problem;
}

void makeFolders(const fs::path& folder) {
    std::error_code failed;
    if (folder.empty() || fs::exists(folder, failed))
        return;
    makeFolders(folder.parent_path());
    if (fs::create_directory(folder, failed))
        host::syncFolder(folder.parent_path());
}

} // namespace velorin::convert
