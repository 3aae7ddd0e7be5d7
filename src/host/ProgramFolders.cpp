// Where the songs lie.
#include "host/ProgramFolders.h"

#include <unistd.h>

namespace velorin::host {

namespace fs = std::filesystem;

fs::path installedFolder(const fs::path& programFolder) {
    const fs::path folder = programFolder.parent_path() / "share" / "velorin";
    std::error_code error;
    return fs::is_directory(folder, error) ? folder : fs::path();
}

// An administrator may write among the system's programs; songs have no place there all the same.
fs::path workFolder(const fs::path& beside, const fs::path& users) {
    const bool isOwn = installedFolder(beside).empty() && access(beside.c_str(), W_OK) == 0;
    if (isOwn || users.empty())
        return beside;
    std::error_code error; // a folder that cannot be made shows when a song is saved
    fs::create_directories(users, error);
    return users;
}

// The songs are put together aside and renamed, so that a start that is cut short leaves no half.
void putInstalledSongs(const fs::path& installed, const fs::path& songsFolder) {
    std::error_code error;
    const fs::path delivered = installed / "songs";
    if (installed.empty() || !fs::is_directory(delivered, error) || fs::exists(songsFolder, error))
        return;
    fs::path aside = songsFolder;
    aside += ".part";
    fs::remove_all(aside, error);
    fs::create_directory(aside, error);
    for (fs::directory_iterator song(delivered, error), end; !error && song != end;
         song.increment(error)) {
        const fs::path copy = aside / song->path().filename();
        fs::copy_file(song->path(), copy, error);
        if (!error)
            fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add, error);
    }
    if (!error)
        fs::rename(aside, songsFolder, error);
    std::error_code ignored; // there is nothing left to try
    if (error)
        fs::remove_all(aside, ignored);
}

} // namespace velorin::host
