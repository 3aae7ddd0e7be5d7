// The texts of the codes.
#include "host/mci/MciErrors.h"

#include <array>

namespace velorin::host {

namespace {

struct ErrorText {
    std::uint32_t code;
    std::string_view text;
};

constexpr std::array errorTexts{
    ErrorText{mci::success, "The specified command was carried out."},
    ErrorText{mci::unknownWord, "The driver does not know a word of the command."},
    ErrorText{mci::unknownCommand, "The driver does not know the specified command."},
    ErrorText{mci::hardwareFailed, "There is a problem with the device."},
    ErrorText{mci::notOpen, "The specified device is not open or is not known."},
    ErrorText{mci::noDriver, "There is no driver for the specified device."},
    ErrorText{mci::noCommand, "No command was specified."},
    ErrorText{mci::badNumber, "A number in the command is missing or wrong."},
    ErrorText{mci::missingValue, "The command lacks a value."},
    ErrorText{mci::cannotDo, "The specified device cannot carry out this command."},
    ErrorText{mci::fileNotFound, "The specified file cannot be found."},
    ErrorText{mci::notReady, "The specified device is not ready."},
    ErrorText{mci::outOfRange, "A value in the command is outside the range of the device."},
    ErrorText{mci::notSaved, "The file was not saved. Is the disk full, or not writable?"},
    ErrorText{mci::aliasInUse, "The specified alias is already in use."},
    ErrorText{mci::missingDevice, "The specified command needs a device, file or alias."},
    ErrorText{mci::badTimeFormat, "The device does not know the specified time format."},
    ErrorText{mci::badFile, "The file cannot be played by the specified device."},
    ErrorText{mci::newNeedsAlias, "A new file needs an alias."},
    ErrorText{mci::badFormat, "The device cannot record in this format."},
    ErrorText{mci::noInput, "There is no device that sound can be recorded from."},
};

} // namespace

std::string_view mciErrorText(std::uint32_t code) {
    for (const ErrorText& error : errorTexts) {
        if (error.code == code)
            return error.text;
    }
    return {};
}

} // namespace velorin::host
