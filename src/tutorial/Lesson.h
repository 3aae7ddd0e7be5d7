// A lesson as data: its steps, what each says and what each does.
#pragma once

#include <functional>
#include <vector>

namespace velorin {

class Tutorial;

/// One act of a step: a call on the program, or a wait.
using Act = std::function<void(Tutorial&)>;

enum class StepPointer { normal, hourglass };

/// What the left button must do on a tableau when the acts begin.
enum class StepMode { any, drawing };

struct Step {
    const char* caption;
    std::vector<const char*> text;             ///< pieces, joined by line breaks
    std::vector<Act> acts;                     ///< in order; none if the step only explains
    StepPointer pointer = StepPointer::normal; ///< while the acts run
    StepMode mode = StepMode::any;             ///< the first step of a lesson always wants to draw
};

struct Lesson {
    const char* tab;    ///< caption of its tab, with the blanks that give the tab its width
    const char* labels; ///< name of its label array, "L1"
    const char* title;
    std::vector<Step> steps; ///< step index [0, size)
};

/// Index [0, 7) of a lesson, in the order of the tabs.
namespace LessonIndex {
constexpr int composition = 0;
constexpr int polyphonics = 1;
constexpr int percussion = 2;
constexpr int editing = 3;
constexpr int recording = 4;
constexpr int midi = 5;
constexpr int setup = 6;
} // namespace LessonIndex
constexpr int lessonCount = 7;

/// All seven, in the order of `LessonIndex`.
[[nodiscard]] const std::vector<Lesson>& lessons();

// One file each in lessons/.
[[nodiscard]] Lesson compositionLesson();
[[nodiscard]] Lesson polyphonicsLesson();
[[nodiscard]] Lesson percussionLesson();
[[nodiscard]] Lesson editingLesson();
[[nodiscard]] Lesson recordingLesson();
[[nodiscard]] Lesson midiLesson();
[[nodiscard]] Lesson setupLesson();

} // namespace velorin
