// The files of the history: their names, and which there are.
#pragma once

#include "host/disk/DurableFile.h"

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velorin::host {

// A run of the program has a marker and one pack or more, which hold its records:
//
//     1893456000-12-345.0001.states     full
//     1893456000-12-345.0002.states     the one that it appends to
//     1893456000-12-345.open            locked while the run lives
//
// The marker says that the current state of the run is to be recovered if the run is over. A run
// that ends with a state that no file holds renames its marker to RUN.unsaved; one that ends safe
// removes it.

/// A name that no other run has: process numbers are used again, moments are not.
[[nodiscard]] std::string nameOfThisRun();

[[nodiscard]] std::string packName(const std::string& run, int number);
[[nodiscard]] std::string openMarker(const std::string& run);
[[nodiscard]] std::string unsavedMarker(const std::string& run);

struct Pack {
    std::string name;
    std::string run;
    int number = 0;
    std::uint64_t bytes = 0;
    std::time_t changed = 0; ///< when its last record was written
    std::uint64_t inode = 0;
};

/// The packs in a folder, by run and number. Other files are ignored.
[[nodiscard]] std::vector<Pack> packsIn(const std::filesystem::path& folder);

struct Marker {
    std::string name;
    std::string run;
    bool isUnsaved = false; ///< the run ended cleanly
};

/// The markers in a folder, by run.
[[nodiscard]] std::vector<Marker> markersIn(const std::filesystem::path& folder);

/// Bytes [begin, end) of a regular file; fewer if it ends before, none if it cannot be read. They
/// are in `buffer`, which only grows: many files are read without new memory for each.
[[nodiscard]] std::string_view readPiece(const std::filesystem::path& path, std::uint64_t begin,
                                         std::uint64_t end, std::string& buffer);

/// A pack is at most as large, whatever its file has: a limit of what is read into memory.
constexpr std::uint64_t mostPackBytes = 16 * 1024 * 1024;

} // namespace velorin::host
