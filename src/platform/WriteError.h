// Why a file could not be written: reasons that a user can do something about.
#pragma once

namespace platform {

enum class WriteError {
    none,          ///< the file is written, and on the disk
    diskFull,      ///< or the user's share of it is
    folderMissing, ///< the folder is gone, or was never there
    readOnly,      ///< the file may not be written, or its disk may not
    notAllowed,    ///< no new file may be made in the folder
    notAFile,      ///< the name is that of a folder or a device
    nameTooLong,
    damaged, ///< writing failed half way, and the old content could not be put back
    other,
};

} // namespace platform
