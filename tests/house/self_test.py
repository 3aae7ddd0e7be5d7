"""Shows that each check of the sources can fail: small made-up trees with one fault each.

    python3 tests/house/self_test.py
"""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

from house import arrows, lengths, rules, stream_thread  # noqa: E402
from house.libraries import Tree  # noqa: E402

# Two libraries in order: the song loop links the score.
SOUND_TREE = {
    "src/model/CMakeLists.txt": "velorin_library(velorin_model\n    SOURCES Score.cpp)\n",
    "src/model/Score.h": "#pragma once\n#include <vector>\n",
    "src/model/Score.cpp": '#include "model/Score.h"\n',
    "src/playback/CMakeLists.txt": "velorin_library(velorin_playback SOURCES Sequencer.cpp LINK velorin_model)\n",
    "src/playback/Sequencer.h": '#pragma once\n#include "model/Score.h"\n',
    "src/playback/Sequencer.cpp": '#include "playback/Sequencer.h"\n#include <algorithm>\n',
}


# A part of the host whose functions the stream's thread calls.
STREAM = {
    "src/host/CMakeLists.txt": "velorin_library(velorin_host SOURCES Synth.cpp)\n",
    "src/host/Source.h": """#pragma once
class Source {
public:
    VELORIN_STREAM_THREAD virtual void mix(float* block) = 0;
};
""",
    "src/host/Synth.h": """#pragma once
#include "host/Source.h"
class Synth final : public Source {
public:
    VELORIN_STREAM_THREAD void mix(float* block) override;

private:
    VELORIN_STREAM_THREAD void fade() { gain_ *= 0.5F; }
    void load();
    float gain_ = 1.0F;
};
""",
    "src/host/Synth.cpp": """#include "host/Synth.h"
void Synth::mix(float* block) {
    const StreamThreadScope scope; // calls load() never
    fade();
}

void Synth::load() {
    font_ = std::make_unique<Font>("new");
}
""",
}


class HouseChecks(unittest.TestCase):
    def findings(self, changes):
        """What the checks find in the sound tree with some files changed or added; None removes one."""
        with tempfile.TemporaryDirectory() as folder:
            top = pathlib.Path(folder)
            for name, text in {**SOUND_TREE, **changes}.items():
                if text is not None:
                    (top / name).parent.mkdir(parents=True, exist_ok=True)
                    (top / name).write_text(text, "utf-8")
            tree = Tree(top / "src")
            return [*(line for check in (*arrows.CHECKS, *stream_thread.CHECKS) for line in check(tree)),
                    *(line for check in (*lengths.CHECKS, *rules.CHECKS) for line in check(top))]

    def assert_found(self, expected, changes):
        self.assertEqual(self.findings(changes), expected)

    def test_a_sound_tree_has_no_findings(self):
        self.assert_found([], {})

    def test_a_source_of_no_library_is_found(self):
        self.assert_found(["src/model/Lost.cpp: belongs to no library of a CMake file"], {"src/model/Lost.cpp": ""})

    def test_a_header_belongs_to_the_library_of_its_folder(self):
        self.assert_found([], {"src/model/Cell.h": "", "src/model/Score.cpp": '#include "model/Cell.h"\n'})

    def test_a_header_of_a_lower_folder_belongs_to_the_nearest_cmake_file_above(self):
        self.assert_found([], {"src/model/cells/Cell.h": "", "src/model/Score.cpp": '#include "model/cells/Cell.h"\n'})

    def test_an_include_of_an_unlinked_library_is_found(self):
        self.assert_found(
            ["src/playback/Sequencer.h:2: velorin_playback includes model/Score.h of velorin_model, which it does not link"],
            {"src/playback/CMakeLists.txt": "velorin_library(velorin_playback SOURCES Sequencer.cpp)\n"})

    def test_a_library_may_include_what_its_links_link(self):
        self.assert_found([], {
            "src/session/CMakeLists.txt": "velorin_library(velorin_session SOURCES Session.cpp LINK velorin_playback)\n",
            "src/session/Session.cpp": '#include "model/Score.h"\n'})

    def test_libraries_of_one_folder_are_told_apart(self):
        self.assert_found(
            ["src/host/B.cpp:1: velorin_b includes host/A.h of velorin_a, which it does not link"],
            {"src/host/CMakeLists.txt": "velorin_library(velorin_a SOURCES A.cpp)\nvelorin_library(velorin_b SOURCES B.cpp)\n",
             "src/host/A.h": "", "src/host/A.cpp": "", "src/host/B.cpp": '#include "host/A.h"\n'})

    def test_a_header_listed_in_a_cmake_file_belongs_to_that_library(self):
        self.assert_found([], {
            "src/host/CMakeLists.txt": "velorin_library(velorin_b SOURCES B.cpp A.h)\nadd_library(a MODULE A.cpp) # loaded\n"
                                       "target_link_libraries(a PRIVATE velorin_b)\n",
            "src/host/A.h": "", "src/host/A.cpp": '#include "host/A.h"\n', "src/host/B.cpp": '#include "host/A.h"\n'})

    def test_a_circle_of_includes_is_found(self):
        found = self.findings({"src/model/Score.cpp": '#include "playback/Sequencer.h"\n'})
        self.assertIn("src/model/Score.cpp:1: velorin_model uses velorin_playback, which leads back to velorin_model", found)

    def test_a_circle_of_links_is_found(self):
        found = self.findings({
            "src/model/CMakeLists.txt": "velorin_library(velorin_model SOURCES Score.cpp LINK velorin_playback)\n"})
        self.assertIn("src/model/CMakeLists.txt: velorin_model uses velorin_playback, which leads back to velorin_model", found)

    def test_qt_in_the_logic_is_found(self):
        self.assert_found(
            ["src/model/Score.cpp:1: logic includes only the standard library, not <QString>",
             "src/model/Score.cpp:1: velorin_model includes <QString> and does not link Qt"],
            {"src/model/Score.cpp": "#include <QString>\n"})

    def test_logic_that_links_qt_is_found(self):
        found = self.findings({"src/model/CMakeLists.txt": "velorin_library(velorin_model QT SOURCES Score.cpp)\n"})
        self.assertEqual(found, ["src/model/CMakeLists.txt: velorin_model is logic and must not link Qt",
                                 "src/playback/CMakeLists.txt: velorin_playback is logic and must not link Qt"])

    def test_the_operating_system_in_the_logic_is_found(self):
        self.assert_found(["src/model/Score.cpp:1: logic includes only the standard library, not <unistd.h>"],
                          {"src/model/Score.cpp": "#include <unistd.h>\n"})

    def test_logic_that_links_the_host_is_found(self):
        self.assert_found(
            ["src/model/CMakeLists.txt: velorin_model is logic and must not link velorin_files of the host",
             "src/playback/CMakeLists.txt: velorin_playback is logic and must not link velorin_files of the host"],
            {"src/model/CMakeLists.txt": "velorin_library(velorin_model SOURCES Score.cpp LINK velorin_files)\n",
             "src/host/files/CMakeLists.txt": "velorin_library(velorin_files SOURCES Files.cpp)\n",
             "src/host/files/Files.cpp": ""})

    def test_qt_in_a_library_that_does_not_link_it_is_found(self):
        self.assert_found(
            ["src/drawing/Stamp.cpp:1: velorin_drawing includes <QImage> and does not link Qt"],
            {"src/drawing/CMakeLists.txt": "velorin_library(velorin_drawing SOURCES Stamp.cpp)\n",
             "src/drawing/Stamp.cpp": "#include <QImage>\n"})

    def test_qt_is_allowed_where_it_is_linked(self):
        self.assert_found([], {"src/drawing/CMakeLists.txt": "velorin_library(velorin_drawing QT SOURCES Stamp.cpp)\n",
                               "src/drawing/Stamp.cpp": "#include <QImage>\n"})

    def test_a_control_reached_by_its_name_is_found(self):
        text = 'auto* box = toolbar->findChild<QLineEdit*>("Text1");\n'
        self.assert_found(["src/model/Score.cpp:1: findChild reaches a control by its name; hold a typed reference"],
                          {"src/model/Score.cpp": text})

    def test_the_parts_of_a_dialog_of_the_toolkit_may_be_searched(self):
        self.assert_found([], {"src/host/loop/CMakeLists.txt": "velorin_library(velorin_loop SOURCES Dialogs.cpp)\n",
                               "src/host/loop/Dialogs.cpp": "dialog.findChild<QComboBox*>();\n"})

    def stream_with(self, file, old, new):
        text = STREAM[f"src/host/{file}"]
        self.assertIn(old, text)
        return {**STREAM, f"src/host/{file}": text.replace(old, new)}

    def test_functions_of_the_streams_thread_that_only_compute_are_sound(self):
        self.assert_found([], STREAM)

    def test_what_the_streams_thread_must_not_do_is_found(self):
        for line in ("buffer_.resize(64);", "auto sound = std::make_unique<Sound>();", "Sound* sound = new Sound;",
                     "std::vector<float> sound(64);", "const std::lock_guard lock(mutex_);", "std::ofstream file(path_);",
                     "std::this_thread::sleep_for(1ms);", "noRoom_.log(text_);", "changed_.notify_all();"):
            found = self.findings(self.stream_with("Synth.cpp", "fade();", line))
            self.assertEqual(len(found), 1, line)
            self.assertIn("src/host/Synth.cpp:4: mix runs on the stream's thread and must not use ", found[0])

    def test_it_is_found_in_a_header_too(self):
        self.assert_found(["src/host/Synth.h:8: fade runs on the stream's thread and must not use new"],
                          self.stream_with("Synth.h", "gain_ *= 0.5F;", "gain_ = *new float;"))

    def test_a_call_of_an_unmarked_function_is_found(self):
        self.assert_found(["src/host/Synth.cpp:4: Synth::mix runs on the stream's thread and calls load, which is not marked"],
                          self.stream_with("Synth.cpp", "fade();", "load();"))

    def test_an_unmarked_override_is_found(self):
        found = self.findings(self.stream_with("Synth.h", "VELORIN_STREAM_THREAD void mix", "void mix"))
        self.assertIn("src/host/Synth.h:5: Synth::mix is called by the stream's thread; mark it VELORIN_STREAM_THREAD", found)
        self.assertIn("src/host/Synth.cpp:3: the stream's thread enters here; mark the function VELORIN_STREAM_THREAD", found)

    def test_a_mark_without_a_function_is_found(self):
        self.assert_found(["src/host/Synth.h:5: mix is marked for the stream's thread and has no body to check",
                           "src/host/Synth.cpp:3: the stream's thread enters here; mark the function VELORIN_STREAM_THREAD"],
                          self.stream_with("Synth.cpp", "Synth::mix", "Synth::mixed"))

    def test_a_long_file_is_found(self):
        self.assert_found(["src/model/Score.cpp: 401 lines; the limit is 400"], {"src/model/Score.cpp": "int a;\n" * 401})

    def test_a_long_table_is_allowed(self):
        self.assert_found([], {"src/model/Score.cpp": '    {"C", 60},\n' * 401})

    def test_a_long_function_is_found(self):
        text = "void draw(int x) {\n" + "    step();\n" * 59 + "}\n"
        self.assert_found(["src/model/Score.cpp:1: a function of 61 lines; the limit is 60"], {"src/model/Score.cpp": text})

    def test_a_rule_names_an_existing_transcript_or_test(self):
        text = "/// Rule: a note of no length is a note. Held by score/no_length,\n/// score/short and NotesTest.HaveALength.\n"
        tests = {"tests/transcripts/score/no_length.txt": "", "tests/transcripts/score/short.txt": "",
                 "tests/unit/model/NotesTest.cpp": "TEST_F(NotesTest, HaveALength) {\n}\n"}
        self.assert_found([], {"src/model/Score.h": text, **tests})
        self.assert_found(["src/model/Score.h:1: score/no_length is not a transcript or a unit test"],
                          {"src/model/Score.h": text, **tests, "tests/transcripts/score/no_length.txt": None})
        self.assert_found(["src/model/Score.h:1: NotesTest.HaveALength is not a transcript or a unit test"],
                          {"src/model/Score.h": text, **tests, "tests/unit/model/NotesTest.cpp": ""})

    def test_a_rule_without_a_test_is_found(self):
        self.assert_found(
            ["src/model/Score.h:1: a rule must end with the transcript or test that holds it: Held by folder/name."],
            {"src/model/Score.h": "// Rule: a note of no length is a note.\n"})


if __name__ == "__main__":
    unittest.main()
