// The operations of a program on a folder, call by call.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velorin::disk {

/// Names are paths below the watched folder, "song.sng" or "Songs/song.sng". A file has a number of
/// its own, which it keeps when it is renamed.
struct Operation {
    enum class Kind {
        make,       ///< a new empty file, `file` under `name`
        makeFolder, ///< `name`
        link,       ///< one more name for `file`
        rename,     ///< `file` from `name` to `newName`
        remove,     ///< `name`, of `file` or of a folder (then `file` is -1)
        write,      ///< `bytes` at `at` of `file`
        resize,     ///< `file` to `at` bytes
        sync,       ///< all of `file` is on the disk
        syncFolder, ///< the names in the folder `name` are on the disk; "" is the watched one
        mark        ///< added by the test: the program reported `name`
    };
    Kind kind = Kind::mark;
    int file = -1;
    std::string name;
    std::string newName;
    std::int64_t at = 0;
    std::string bytes;
};

[[nodiscard]] std::string describe(const Operation& operation);

struct DiskLog {
    std::map<std::string, int> names;  ///< at the beginning, on the disk
    std::set<std::string> folders;     ///< likewise
    std::vector<std::string> contents; ///< by file, at the beginning; later files are not in it
    std::vector<Operation> operations;
    std::vector<std::string> missed; ///< where a file differed from what the calls had made of it
};

/// Applies a write or a resize to a file's bytes. A gap before a write is filled with zeros.
void change(std::string& content, const Operation& operation);

/// "Songs" of "Songs/song.sng", "" of "song.sng".
[[nodiscard]] std::string folderOf(const std::string& name);

} // namespace velorin::disk
