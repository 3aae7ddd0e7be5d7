// Brings the table of controls to the controls of a window.
#pragma once

class QWidget;

namespace velorin {

/// Gives every control below `root` that the table of `window` has its tool tip, its name, its
/// description (long hint and keys) and its kind for readers of the screen. A button that stands
/// for a picture too has the tip of the picture as its property "pictureTip". To be called when
/// the controls are made and have their object names.
void describeControls(QWidget& root, const char* window);

} // namespace velorin
