// The acts that the tables of the lessons are written in.
#include "tutorial/Acts.h"

namespace velorin::acts {

Act loads(const char* sample) {
    return [sample](Tutorial& tutorial) { tutorial.loadSample(sample); };
}

Act loadsAndKeeps(const char* sample) {
    return [sample](Tutorial& tutorial) { tutorial.openSample(sample); };
}

Act namesInRecord(const char* sample) {
    return [sample](Tutorial& tutorial) {
        tutorial.desk().setRecordText6(tutorial.sampleName(sample));
    };
}

Act pauses() {
    return [](Tutorial& tutorial) { tutorial.pause1(); };
}

Act clicks(int button, TableauPoint point) {
    return [button, point](Tutorial& tutorial) {
        tutorial.desk().MusicBox_MouseDown(button, 0, point.x, point.y);
        tutorial.desk().MusicBox_MouseUp(button, 0, point.x, point.y);
        tutorial.pause1();
    };
}

Act drags(TableauPoint from, TableauPoint to) {
    return [from, to](Tutorial& tutorial) {
        WizardDesk& desk = tutorial.desk();
        desk.MusicBox_MouseDown(leftButton, 0, from.x, from.y);
        desk.MusicBox_MouseMove(leftButton, 0, from.x, from.y);
        tutorial.pause1();
        if (tutorial.isEnding())
            return;
        desk.MusicBox_MouseMove(leftButton, 0, to.x, to.y);
        desk.MusicBox_MouseUp(leftButton, 0, to.x, to.y);
    };
}

} // namespace velorin::acts
