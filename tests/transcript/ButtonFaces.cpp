// Buttons with a separate picture.
#include "ButtonFaces.h"

#include "Answers.h"
#include "windows/editing/Form2.h"
#include "windows/recording/Record.h"

#include <algorithm>
#include <iterator>

namespace transcript {

namespace {

using velorin::Form2;
using velorin::Record;

/// The number of a button of the Editing Toolbar, 0 for any other control.
int editButton(const Form2& form, const QWidget& control) {
    const auto found = std::find(form.Cmd2.begin() + 1, form.Cmd2.end(), &control);
    return found == form.Cmd2.end() ? 0 : static_cast<int>(std::distance(form.Cmd2.begin(), found));
}

/// True if a button of the Recording Toolbar is raised; no value for any other control.
std::optional<bool> isPlayerButtonVisible(const QWidget& control) {
    const auto* form = qobject_cast<const Record*>(control.window());
    if (form == nullptr)
        return std::nullopt;
    const auto found = std::find(form->Cmd2.begin(), form->Cmd2.end(), &control);
    if (found == form->Cmd2.end())
        return std::nullopt;
    return form->isCmd2Visible(static_cast<int>(std::distance(form->Cmd2.begin(), found)));
}

} // namespace

std::optional<Lines> faceProperty(Runner&, const Address& address, QWidget& control) {
    if (address.control.starts_with("ImgPic(")) {
        if (address.property == "visible")
            return Lines{"1"};
        const QVariant tip = control.property("pictureTip");
        if (address.property == "tooltip" && tip.isValid())
            return answer(tip.toString().toStdString());
        return std::nullopt;
    }
    if (const auto shows = isPlayerButtonVisible(control); shows && address.property == "visible")
        return Lines{*shows || address.control.starts_with("ImgR(") ? "1" : "0"};
    const auto* form = qobject_cast<const Form2*>(control.window());
    const int button = form != nullptr ? editButton(*form, control) : 0;
    if (button == 0)
        return std::nullopt;
    if (address.property == "visible")
        return Lines{form->isCmd2Visible(button) ? "1" : "0"};
    // In draw mode the pictures of the last six ignore the pointer, but the buttons do not.
    if (address.property == "enabled")
        return Lines{form->isEnabled() ? "1" : "0"};
    return std::nullopt;
}

bool pictureTakesMouse(QWidget& target, const std::string& action) {
    auto* form = qobject_cast<Form2*>(target.window());
    const int button = form != nullptr ? editButton(*form, target) : 0;
    if (button == 0 || form->isCmd2Visible(button))
        return false;
    if (action == "down")
        form->ImgPic_MouseDown(button);
    else if (action == "move")
        form->ImgPic_MouseMove(button);
    else
        form->ImgPic_MouseUp(button);
    return true;
}

} // namespace transcript
