// Where the songs are: beside the program, or in the user's folder if the program was installed.
#pragma once

#include <filesystem>

namespace velorin::host {

/// The folder with the songs of an installation: "../share/velorin", relative to the program. Empty
/// if the program was not installed, but built or unpacked.
[[nodiscard]] std::filesystem::path installedFolder(const std::filesystem::path& programFolder);

/// The folder that "Songs" and "media" are in: `beside` the program if it is writable and the
/// program was not installed, else `users`, which is created. Without a user's folder it is
/// `beside`.
[[nodiscard]] std::filesystem::path workFolder(const std::filesystem::path& beside,
                                               const std::filesystem::path& users);

/// Copies the installed songs to `songsFolder` if that does not exist yet. An existing folder is
/// left alone, so a song that the user has deleted stays deleted.
void copyInstalledSongs(const std::filesystem::path& installed,
                        const std::filesystem::path& songsFolder);

} // namespace velorin::host
