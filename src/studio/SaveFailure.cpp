// The reason and the advice for each failure of a save.
#include "studio/SaveFailure.h"

#include <algorithm>
#include <array>

namespace velorin {

namespace {

using platform::WriteError;

struct Failure {
    WriteError error;
    const char* reason;
    const char* wayOut;
};

constexpr std::array failures{
    Failure{WriteError::diskFull, "the disk is full", "Make room and save again."},
    Failure{WriteError::folderMissing, "its folder is not there", "Save it in another folder."},
    Failure{WriteError::readOnly, "the file or its disk is read-only",
            "Save it under another name or in another folder."},
    Failure{WriteError::notAllowed, "you may not write to its folder",
            "Save it in another folder."},
    Failure{WriteError::notAFile, "a folder or a device has this name",
            "Save it under another name."},
    Failure{WriteError::nameTooLong, "the name is too long", "Save it under a shorter name."},
    Failure{WriteError::damaged, "the disk failed, and the file that was there is damaged",
            "Save it in another folder before you go on."},
    Failure{WriteError::other, "the disk reported an error", "Save it in another folder."},
};

std::string lastPart(const std::string& name) {
    const std::size_t separator = name.find_last_of("/\\");
    return separator == std::string::npos ? name : name.substr(separator + 1);
}

} // namespace

std::string saveFailureText(const std::string& name, WriteError error) {
    const auto* known =
        std::find_if(failures.begin(), failures.end() - 1,
                     [error](const Failure& failure) { return failure.error == error; });
    std::string text = "\"";
    text += lastPart(name);
    text += "\" was not saved: ";
    text += known->reason;
    text += ". ";
    text += known->wayOut;
    return text;
}

} // namespace velorin
