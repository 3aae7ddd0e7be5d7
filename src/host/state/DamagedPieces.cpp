// The copy of a damaged piece is named for its pack and its place in it.
#include "host/state/DamagedPieces.h"

#include "host/disk/DurableFile.h"
#include "host/disk/FileLock.h"
#include "host/process/OnceLogger.h"

#include <sys/stat.h>

#include <system_error>
#include <utility>

namespace velorin::host {

namespace fs = std::filesystem;

DamagedPieces::DamagedPieces(fs::path historyFolder)
    : historyFolder_(std::move(historyFolder)), folder_(historyFolder_ / "damaged") {}

void DamagedPieces::setAside(const std::string& pack, std::uint64_t at, std::string_view bytes) {
    const std::string name = pack + "." + std::to_string(at);
    std::error_code error;
    if (!logged_.insert(name).second || fs::exists(folder_ / name, error))
        return;
    (void)mkdir(folder_.c_str(), S_IRWXU);
    const bool isCopied = writeNewFile(folder_ / name, std::string(bytes)).isOpen();
    logLine("a piece of the history in " + (historyFolder_ / pack).string() +
            " is damaged and left out" +
            (isCopied ? "; its bytes are in " + (folder_ / name).string() : std::string()));
}

void DamagedPieces::removeOrphans() const {
    for (const std::string& name : listFolder(folder_)) {
        std::error_code ignored; // the next time
        if (!fs::exists(historyFolder_ / name.substr(0, name.rfind('.')), ignored))
            fs::remove(folder_ / name, ignored);
    }
}

} // namespace velorin::host
