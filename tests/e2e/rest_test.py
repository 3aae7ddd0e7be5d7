"""After some idle time the program closes the sound card and uses no processor time. The next press sounds again."""

import array
import math
import pathlib
import time
import wave

import listen
from desk import Desk, check, run, wait_until
from recorded import OPEN, PLAY


def processor_seconds(pid):
    tasks = pathlib.Path(f"/proc/{pid}/task").iterdir()
    return sum(int((task / "schedstat").read_text().split()[0]) for task in tasks) / 1e9


def streams(desk):
    return desk.told(["pactl", "list", "short", "sink-inputs"]).strip()


def check_sounds(desk, program, line):
    """Checks that a drawn note is heard."""
    start = listen.frames_in(desk.recording)
    desk.click(*program.cell(4, line))
    wait_until(lambda: listen.first_sound(listen.samples(desk.recording, start)) is not None, "the note's sound")


def write_wav(path):
    """A tone of one second."""
    with wave.open(str(path), "wb") as file:
        file.setparams((1, 2, listen.RATE, 0, "NONE", ""))
        file.writeframes(array.array("h", (int(9000 * math.sin(i / 20)) for i in range(listen.RATE))).tobytes())


def check_rests(desk, program, what):
    wait_until(lambda: not streams(desk), f"the end of the stream after {what}", 60)
    before = processor_seconds(program.process.pid)
    time.sleep(3)
    share = (processor_seconds(program.process.pid) - before) / 3
    check(share < 0.002, f"the idle program takes {100 * share:.2f} % of a core after {what}")


def check_file(desk, program):
    """A file that has played to its end and is still open does not keep the stream running."""
    start = listen.frames_in(desk.recording)
    program.press(11)
    desk.settled(desk.window("Recording Toolbar"))
    desk.click(*program.place_in("Recording Toolbar", OPEN))
    desk.choose_file("Open File", "tone.wav")
    desk.click(*program.place_in("Recording Toolbar", PLAY))
    wait_until(lambda: listen.first_sound(listen.samples(desk.recording, start)) is not None, "the file's sound")
    check_rests(desk, program, "a file")


def test(build):
    with Desk(build) as desk:
        desk.songs.mkdir()
        write_wav(desk.songs / "tone.wav")
        program = desk.launch()
        program.main_window()
        wait_until(lambda: streams(desk), "the program's stream")
        check_sounds(desk, program, 10)
        check_rests(desk, program, "a note")
        check_sounds(desk, program, 14)
        check(streams(desk), "the stream did not start again")
        check_file(desk, program)
        program.end()


run(test)
