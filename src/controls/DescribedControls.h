// The names of controls, and what the table of controls says of them.
#pragma once

#include <QString>

class QWidget;

namespace velorin {

/// The name of an element of an array of controls: "TrackHide(3)".
[[nodiscard]] QString elementName(const char* array, int index);

/// Gives every control below `root` that the table of `window` has its tool tip, its name, its
/// description (long hint and keys) and its kind for readers of the screen. A button that stands
/// for a picture too has the tip of the picture as its property "pictureTip". To be called when
/// the controls are made and have their object names.
void describeControls(QWidget& root, const char* window);

} // namespace velorin
