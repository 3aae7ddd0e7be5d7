// Gives controls their names and their texts from the table of controls.
#pragma once

#include <QString>

class QWidget;

namespace velorin {

/// The name of an element of an array of controls: "TrackHide(3)".
[[nodiscard]] QString elementName(const char* array, int index);

/// Gives every control below `root` that is in the table of `window` its tool tip and, for screen
/// readers, its name, its description (long hint and keys) and its kind. A button that is also a
/// picture gets the picture's tip as the property "pictureTip". Call it when the controls are made
/// and have their object names.
void describeControls(QWidget& root, const char* window);

} // namespace velorin
