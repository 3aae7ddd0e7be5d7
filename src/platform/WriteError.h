// Why a file could not be written, by what the user can do about it.
#pragma once

namespace platform {

enum class WriteError {
    none,          ///< the file is written, and on the disk
    diskFull,      ///< or the user's quota is used up
    folderMissing, ///< the folder does not exist
    readOnly,      ///< the file or its disk is write-protected
    notAllowed,    ///< no new file may be created in the folder
    notAFile,      ///< the name is that of a folder or a device
    nameTooLong,
    damaged, ///< writing failed half way, and the old content could not be put back
    other,
};

} // namespace platform
