// Writes a temporary file, syncs it and renames it.
#include "convert/OutputFile.h"

namespace velorin::convert {

namespace fs = std::filesystem;
using platform::Failure;
using platform::Result;

namespace {

// A link is kept, and its target is replaced.
fs::path followLinks(const fs::path& target) {
    std::error_code failed;
    const fs::path real = fs::canonical(target, failed);
    return failed ? target : real;
}

} // namespace

std::string cannotBeWritten(std::error_code why) {
    return why ? "cannot be written: " + why.message() : "cannot be written";
}

fs::path folderOf(const fs::path& target) {
    return followLinks(target).parent_path();
}

OutputFile::OutputFile(const fs::path& target, Existing existing)
    : target_(followLinks(target)), existing_(existing) {}

// The temporary file has a short name, so a name that is too long would show only at the end.
Result<void> OutputFile::begin() {
    std::error_code unknown;
    (void)fs::symlink_status(target_, unknown);
    if (unknown == std::errc::filename_too_long)
        return Failure{cannotBeWritten(unknown)};
    if (const std::error_code failed = part_.create(target_.parent_path()))
        return Failure{cannotBeWritten(failed)};
    return {};
}

Result<void> OutputFile::write(const std::string& bytes) {
    if (const std::error_code failed = part_.write(bytes))
        return Failure{cannotBeWritten(failed)};
    return {};
}

Result<void> OutputFile::finish() {
    const std::error_code failed = existing_ == Existing::kept
                                       ? host::placeDurably(part_.path(), target_)
                                       : host::replaceDurably(part_.path(), target_);
    if (failed)
        return Failure{"cannot be put in place: " + failed.message()};
    return {};
}

Result<void> writeOutput(const fs::path& target, const std::string& content, Existing existing) {
    OutputFile file(target, existing);
    if (auto begun = file.begin(); !begun)
        return begun;
    if (auto written = file.write(content); !written)
        return written;
    return file.finish();
}

void makeFolders(const fs::path& folder) {
    std::error_code failed;
    if (folder.empty() || fs::exists(folder, failed))
        return;
    makeFolders(folder.parent_path());
    if (fs::create_directory(folder, failed))
        (void)host::syncFolder(folder.parent_path()); // a failure shows with the file
}

} // namespace velorin::convert
