// Chooses the folder of the songs and fills it at the first start.
#include "host/files/ProgramFolders.h"

#include <unistd.h>

namespace velorin::host {

namespace fs = std::filesystem;

fs::path installedFolder(const fs::path& programFolder) {
    const fs::path folder = programFolder.parent_path() / "share" / "velorin";
    std::error_code error;
    return fs::is_directory(folder, error) ? folder : fs::path();
}

// An administrator may write to the folder of an installed program; songs do not belong there all
// the same.
fs::path workFolder(const fs::path& beside, const fs::path& users) {
    const bool isOwn = installedFolder(beside).empty() && access(beside.c_str(), W_OK) == 0;
    if (isOwn || users.empty())
        return beside;
    std::error_code error; // a failure shows when a song is saved
    fs::create_directories(users, error);
    return users;
}

// The songs are copied to a temp folder, which is then renamed, so that a start that is cut short
// leaves no incomplete folder.
void copyInstalledSongs(const fs::path& installed, const fs::path& songsFolder) {
    std::error_code error;
    const fs::path delivered = installed / "songs";
    if (installed.empty() || !fs::is_directory(delivered, error) || fs::exists(songsFolder, error))
        return;
    fs::path temp = songsFolder;
    temp += ".part";
    fs::remove_all(temp, error);
    fs::create_directory(temp, error);
    for (fs::directory_iterator song(delivered, error), end; !error && song != end;
         song.increment(error)) {
        const fs::path copy = temp / song->path().filename();
        fs::copy_file(song->path(), copy, error);
        if (!error)
            fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add, error);
    }
    if (!error)
        fs::rename(temp, songsFolder, error);
    std::error_code ignored; // there is nothing left to try
    if (error)
        fs::remove_all(temp, ignored);
}

} // namespace velorin::host
