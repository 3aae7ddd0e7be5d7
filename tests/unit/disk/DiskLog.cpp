// Applies operations and describes them in words.
#include "DiskLog.h"

#include <algorithm>

namespace velorin::disk {

std::string describe(const Operation& operation) {
    using Kind = Operation::Kind;
    const std::string file = "file " + std::to_string(operation.file);
    switch (operation.kind) {
    case Kind::make:
        return "make " + operation.name + " (" + file + ")";
    case Kind::makeFolder:
        return "make folder " + operation.name;
    case Kind::link:
        return "link " + operation.name + " (" + file + ")";
    case Kind::rename:
        return "rename " + operation.name + " to " + operation.newName;
    case Kind::remove:
        return "remove " + operation.name;
    case Kind::write:
        return "write " + std::to_string(operation.bytes.size()) + " bytes at " +
               std::to_string(operation.at) + " of " + file;
    case Kind::resize:
        return "resize " + file + " to " + std::to_string(operation.at);
    case Kind::sync:
        return "sync " + file;
    case Kind::syncFolder:
        return "sync folder " + (operation.name.empty() ? "." : operation.name);
    default:
        return "\"" + operation.name + "\"";
    }
}

void change(std::string& content, const Operation& operation) {
    const auto at = static_cast<std::size_t>(operation.at);
    if (operation.kind == Operation::Kind::resize)
        return content.resize(at);
    content.resize(std::max(content.size(), at + operation.bytes.size()));
    content.replace(at, operation.bytes.size(), operation.bytes);
}

std::string folderOf(const std::string& name) {
    const std::size_t separator = name.rfind('/');
    return separator == std::string::npos ? std::string() : name.substr(0, separator);
}

} // namespace velorin::disk
