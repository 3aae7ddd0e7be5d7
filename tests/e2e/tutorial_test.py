"""Goes through the lessons of the tutorial with the mouse: each step's hint shows, and what it does is seen."""

import os
import time

import listen
from desk import BEATBOX, Desk, check, run, wait_until

RED, BLUE, PURPLE = (255, 0, 0), (0, 0, 255), (192, 0, 192)

# Places in the wizard's window, in its own pixels.
TABS = {"Composition": 60, "Polyphonics": 152, "Percussion": 243, "Editing": 325, "Recording": 430, "Midi": 512,
        "Setup": 580}
TAB_TOP = 50
FIRST_STEP = (80, 132)
STEP_HEIGHT = 24


class Wizard:
    """The tutorial's window, opened with its button and put where it covers no notes and no toolbar covers it."""

    def __init__(self, desk, program):
        self.desk = desk
        program.press(12)
        self.window = desk.window(" Tutorial Wizard")
        x, y, *_ = desk.settled(self.window)
        desk.drag([(x + 300, y + 14), (x + 500, y - 50), (x + 740, y - 136)])
        wait_until(lambda: desk.place_of(self.window)[0] > x + 300, "the wizard in the corner")
        self.left, self.top, *_ = desk.settled(self.window)
        self.pictures = os.environ.get("VELORIN_TUTORIAL_PICTURES")
        self.lesson = ""

    def choose(self, lesson):
        self.lesson = lesson
        self.desk.click(self.left + TABS[lesson], self.top + TAB_TOP)

    def step(self, line, seconds=0.5):
        """Clicks the step on a line, reads its hint, closes it by a click, and gives the step its time."""
        self.desk.click(self.left + FIRST_STEP[0], self.top + FIRST_STEP[1] + STEP_HEIGHT * line)
        hint = self.desk.window("Velorin Wizard")
        x, y, *_ = self.desk.settled(hint)
        self.keep(f"{line:02}-hint")
        self.desk.click(x + 120, y + 60)
        self.desk.no_window("Velorin Wizard")
        time.sleep(seconds)
        self.keep(f"{line:02}-done")

    def keep(self, name):
        if self.pictures:
            self.desk.screen.write_png(f"{self.pictures}/{self.lesson}-{name}.png", *self.desk.size)


def hears(desk, what, play):
    start = listen.frames_in(desk.recording)
    play()
    wait_until(lambda: listen.first_sound(listen.samples(desk.recording, start)) is not None, f"the sound of {what}")


def compose(desk, program, wizard):
    wizard.choose("Composition")
    wizard.step(0)
    wizard.step(1)
    program.wait_for_colour(program.cell(0, 5), RED, "the melody's first note")
    wizard.step(2)
    wizard.step(3)
    program.wait_for_colour(program.cell(0, 8), BLUE, "the second channel's first note")
    wizard.step(4)
    wizard.step(5)
    program.wait_for_colour(program.cell(0, 0, BEATBOX), PURPLE, "the first beat")
    hears(desk, "the composition", lambda: wizard.step(6, 8))
    wizard.step(7, 0)
    desk.choose_file("Save music file", "composed", save_filter=1)
    wait_until((desk.songs / "composed.sng").exists, "the composition in its file")


def play_chords(desk, program, wizard):
    wizard.choose("Polyphonics")
    for line in range(6):
        wizard.step(line)
    program.wait_for_colour(program.cell(0, 5), RED, "the melody's first note")
    hears(desk, "the chords", lambda: wizard.step(6, 8))
    hears(desk, "the single notes", lambda: wizard.step(7, 8))


def make_beat(desk, program, wizard):
    wizard.choose("Percussion")
    for line in range(9):
        wizard.step(line)
    program.wait_for_colour(program.cell(0, 0, BEATBOX), PURPLE, "the first beat")
    wizard.step(9, 1)
    program.wait_for_colour(program.cell(60, 0, BEATBOX), PURPLE, "the last copy's first beat")
    hears(desk, "the beat", lambda: wizard.step(10, 14))


def edit(desk, program, wizard):
    wizard.choose("Editing")
    wizard.step(0, 6)
    program.wait_for_colour(program.cell(0, 7), RED, "the first clicked note")
    wizard.step(1)
    wizard.step(2, 3)
    program.wait_for_colour(program.cell(9, 13), RED, "the erased note", shown=False)
    wizard.step(3, 3)
    wizard.step(4, 3)
    program.wait_for_colour(program.cell(9, 9), RED, "the drawn note")
    wizard.step(5, 1)
    desk.window("Editing Toolbar")
    for line, seconds in ((6, 1), (7, 2), (8, 3), (9, 4), (10, 1), (11, 2)):
        wizard.step(line, seconds)


def prepare_recording(desk, wizard):
    wizard.choose("Recording")
    wizard.step(0, 1)
    desk.window("Recording Toolbar")
    wizard.step(1, 4)
    wizard.step(2)
    wizard.step(3, 1)


def use_midi(desk, wizard):
    wizard.choose("Midi")
    wizard.step(0, 1)
    wizard.step(1, 0)
    desk.choose_file("Save music file", "exported", save_filter=0)
    exported = desk.songs / "exported.mid"
    wait_until(exported.exists, "the exported file")
    wizard.step(3, 1)
    desk.window("Recording Toolbar")
    wizard.step(4, 0)
    desk.choose_file("Open File", exported)
    desk.no_window("Open File")


def set_up(desk, program, wizard):
    wizard.choose("Setup")
    for line in range(6):
        wizard.step(line)
    program.wait_for_colour(program.cell(4, 0, BEATBOX), PURPLE, "the first clap")
    hears(desk, "the finished setup", lambda: wizard.step(6, 6))


def test(build):
    with Desk(build) as desk:
        desk.songs.mkdir()
        program = desk.launch()
        program.main_window()
        wizard = Wizard(desk, program)
        compose(desk, program, wizard)
        play_chords(desk, program, wizard)
        make_beat(desk, program, wizard)
        edit(desk, program, wizard)
        prepare_recording(desk, wizard)
        use_midi(desk, wizard)
        set_up(desk, program, wizard)
        program.end()
        check(not list((desk.program_folder / "media").iterdir()), "samples are left at the end")


run(test)
