// The seven lessons in their order.
#include "tutorial/Lesson.h"

namespace velorin {

const std::vector<Lesson>& lessons() {
    static const std::vector<Lesson> all{
        compositionLesson(), polyphonicsLesson(), percussionLesson(), editingLesson(),
        recordingLesson(),   midiLesson(),        setupLesson(),
    };
    return all;
}

} // namespace velorin
