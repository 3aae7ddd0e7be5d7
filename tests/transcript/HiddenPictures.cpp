// The names of the off-screen pictures, and their properties.
#include "HiddenPictures.h"

#include "Runner.h"

#include "windows/main/Form1.h"

namespace transcript {

const velorin::Picture* hiddenPicture(Runner& runner, const std::string& name) {
    if (!runner.isRunning())
        return nullptr;
    const velorin::Picmain& area = *runner.form1().area;
    if (name == "SwapScreen")
        return &area.SwapScreen;
    if (name == "BlueBox")
        return &area.BlueBox;
    if (name == "RedBox")
        return &area.RedBox;
    if (name == "GreenBox")
        return &area.GreenBox;
    return nullptr;
}

std::optional<Lines> hiddenPictureProperty(Runner& runner, const Address& address) {
    if (address.window != "Form1")
        return std::nullopt;
    const velorin::Picture* picture = hiddenPicture(runner, address.control);
    if (picture == nullptr)
        return std::nullopt;
    if (address.property == "visible")
        return Lines{"0"};
    if (address.property == "color") {
        const velorin::Colour ground = picture->ground();
        return Lines{std::to_string(ground & 0xFF) + "," + std::to_string((ground >> 8) & 0xFF) +
                     "," + std::to_string((ground >> 16) & 0xFF)};
    }
    if (address.property != "rect")
        return std::nullopt;
    // Their place is that of the music tableau.
    const QPoint corner = runner.form1().area->MusicBox->pos();
    return Lines{std::to_string(corner.x()) + "," + std::to_string(corner.y()) + "," +
                 std::to_string(picture->ScaleWidth()) + "," +
                 std::to_string(picture->ScaleHeight())};
}

} // namespace transcript
