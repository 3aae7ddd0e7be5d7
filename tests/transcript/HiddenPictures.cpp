// Names of the off-screen pictures, and what `get` prints of them.
#include "HiddenPictures.h"

#include "Session.h"

#include "program/Form1.h"

namespace transcript {

const velorin::Picture* hiddenPicture(Session& session, const std::string& name) {
    if (!session.isRunning())
        return nullptr;
    const velorin::Picmain& area = *session.form1().area;
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

std::optional<Lines> hiddenPictureProperty(Session& session, const Address& address) {
    if (address.window != "Form1")
        return std::nullopt;
    const velorin::Picture* picture = hiddenPicture(session, address.control);
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
    // They lie behind the music tableau, from its upper left corner on.
    const QPoint corner = session.form1().area->MusicBox->pos();
    return Lines{std::to_string(corner.x()) + "," + std::to_string(corner.y()) + "," +
                 std::to_string(picture->ScaleWidth()) + "," +
                 std::to_string(picture->ScaleHeight())};
}

} // namespace transcript
