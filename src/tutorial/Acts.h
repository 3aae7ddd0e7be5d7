// The acts that the tables of the lessons are written in.
#pragma once

#include "tutorial/Lesson.h"
#include "tutorial/Tutorial.h"
#include "tutorial/WizardDesk.h"

namespace velorin {

/// A place on `MusicBox` in pixels.
struct TableauPoint {
    double x;
    double y;
};

namespace acts {

constexpr int leftButton = 1;
constexpr int rightButton = 2;

/// A call on the program: call(&WizardDesk::setTrackSel, 1, true).
template <class... Parameters, class... Values>
Act call(void (WizardDesk::*procedure)(Parameters...), Values... values) {
    return [=](Tutorial& tutorial) { (tutorial.desk().*procedure)(values...); };
}

/// Loads a sample, named from the program's folder on, and deletes its file.
[[nodiscard]] Act loads(const char* sample);
/// Loads a sample and leaves its file there.
[[nodiscard]] Act loadsAndKeeps(const char* sample);
/// `Record.Text6` gets the full name of a sample.
[[nodiscard]] Act namesInRecord(const char* sample);

[[nodiscard]] Act pauses();
/// A press and a release, then a pause.
[[nodiscard]] Act clicks(int button, TableauPoint point);
/// A press, a move on the spot, a pause, a move and a release.
[[nodiscard]] Act drags(TableauPoint from, TableauPoint to);

} // namespace acts

} // namespace velorin
