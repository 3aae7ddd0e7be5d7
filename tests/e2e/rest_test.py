"""Left alone, the program gives the sound card back and costs the processor nothing; the first press sounds again."""

import pathlib
import time

import listen
from desk import Desk, check, run, wait_until


def processor_seconds(pid):
    tasks = pathlib.Path(f"/proc/{pid}/task").iterdir()
    return sum(int((task / "schedstat").read_text().split()[0]) for task in tasks) / 1e9


def streams(desk):
    return desk.told(["pactl", "list", "short", "sink-inputs"]).strip()


def check_sounds(desk, program, line):
    """A note that is drawn is heard."""
    start = listen.frames_in(desk.recording)
    desk.click(*program.cell(4, line))
    wait_until(lambda: listen.first_sound(listen.samples(desk.recording, start)) is not None, "the note's sound")


def test(build):
    with Desk(build) as desk:
        program = desk.launch()
        program.main_window()
        wait_until(lambda: streams(desk), "the program's stream")
        check_sounds(desk, program, 10)
        wait_until(lambda: not streams(desk), "the end of a stream in which nothing sounds", 60)
        before = processor_seconds(program.process.pid)
        time.sleep(3)
        share = (processor_seconds(program.process.pid) - before) / 3
        check(share < 0.002, f"the idle program takes {100 * share:.2f} % of a core")
        check_sounds(desk, program, 14)
        check(streams(desk), "the stream is there again")
        program.end()


run(test)
