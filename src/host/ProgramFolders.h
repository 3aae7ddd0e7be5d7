// Where the songs lie: beside the program, or with the user where the program belongs to the
// system.
#pragma once

#include <filesystem>

namespace velorin::host {

/// The folder that an installation keeps its songs in, "../share/velorin" as seen from the program;
/// empty if the program was not installed, as in a folder that it was built in or unpacked into.
[[nodiscard]] std::filesystem::path installedFolder(const std::filesystem::path& programFolder);

/// The folder in which "Songs" and "media" lie, `beside` the program or `users`, and it is there on
/// return. That of the program if it may be written to and was not installed; without a user's
/// folder there is no other.
[[nodiscard]] std::filesystem::path workFolder(const std::filesystem::path& beside,
                                               const std::filesystem::path& users);

/// Gives a user who has no folder for songs yet one that holds the installed songs. One that is
/// there is left alone, so a song that the user has deleted stays away.
void putInstalledSongs(const std::filesystem::path& installed,
                       const std::filesystem::path& songsFolder);

} // namespace velorin::host
