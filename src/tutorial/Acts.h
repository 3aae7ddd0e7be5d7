// The acts that the tables of the lessons are written in.
#pragma once

#include "session/Session.h"
#include "studio/MainDesk.h"
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

/// A call on a part of the session: call(&Session::edits, &BlockEdits::copyIt).
template <class Part, class... Parameters, class... Values>
Act call(Part Session::*part, void (Part::*procedure)(Parameters...), Values... values) {
    return [=](Tutorial& tutorial) { (tutorial.session().*part.*procedure)(values...); };
}

/// A call on a value of the Setup Toolbar: call(&Setup::setTrackSel, 1, true).
template <class... Parameters, class... Values>
Act call(void (Setup::*procedure)(Parameters...), Values... values) {
    return [=](Tutorial& tutorial) { (tutorial.session().studio.setup.*procedure)(values...); };
}

/// A call on the main window: call(&MainDesk::focusBeatbox).
template <class... Parameters, class... Values>
Act call(void (MainDesk::*procedure)(Parameters...), Values... values) {
    return [=](Tutorial& tutorial) { (tutorial.session().studio.desk->*procedure)(values...); };
}

/// A call on any other window: call(&WizardDesk::setRecordTab, RecordTab::preferences).
template <class... Parameters, class... Values>
Act call(void (WizardDesk::*procedure)(Parameters...), Values... values) {
    return [=](Tutorial& tutorial) { (tutorial.desk().*procedure)(values...); };
}

/// Loads a sample, named from the program's folder on, and deletes its file.
[[nodiscard]] Act loads(const char* sample);
/// Loads a sample and keeps its file.
[[nodiscard]] Act loadsAndKeeps(const char* sample);
/// Sets `Record.Text6` to the full name of a sample.
[[nodiscard]] Act namesInRecord(const char* sample);

[[nodiscard]] Act pauses();
/// A press and a release, then a pause.
[[nodiscard]] Act clicks(int button, TableauPoint point);
/// A press, a move to the same point, a pause, a move and a release.
[[nodiscard]] Act drags(TableauPoint from, TableauPoint to);

} // namespace acts

} // namespace velorin
