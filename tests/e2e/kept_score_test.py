"""The score is recovered with its last finished change, however the program ends."""

import argparse
import pathlib
import random
import signal
import sys
import threading
import time

from desk import CELL, Desk, Failure, check, wait_until

TOP_PITCH = 55
WIDTH_OF_A_NOTE = 3  # columns
STEP = 4  # columns from one note to the next
MOST_NOTES = 20
CLOSE_FROM_RIGHT = 26  # the middle of the close button, in the title of the main window
HANDLED_S = 0.25  # after the release of a button; by then its handler has returned, even on a busy machine


def line_of(note):
    """Each note has a line of its own, far below the percussion strip."""
    return 8 + note % MOST_NOTES


def expected_row(notes):
    """The first line of the score file with this many notes."""
    cells = []
    for note in range(notes):
        pitch = TOP_PITCH + line_of(note)
        cells += [pitch] + [1000 + pitch] * (WIDTH_OF_A_NOTE - 1) + [-1] * (STEP - WIDTH_OF_A_NOTE)
    while cells and cells[-1] == -1:
        cells.pop()
    return ",".join(map(str, cells)) or "-1"


class Hand(threading.Thread):
    """Draws one note after another until it is stopped."""

    def __init__(self, desk, program):
        super().__init__(daemon=True)
        self.desk, self.program = desk, program
        self.pressed, self.released = 0, []
        self.stopped = threading.Event()

    def run(self):
        for note in range(MOST_NOTES):
            if self.stopped.is_set():
                return
            x, y = self.program.cell(note * STEP, line_of(note))
            # Slowly: the program must handle a press before the next move.
            words = ["mousemove", x, y, "sleep", "0.03", "mousedown", 1]
            for column in range(1, WIDTH_OF_A_NOTE):
                words += ["sleep", "0.03", "mousemove", x + column * CELL, y]
            words += ["sleep", "0.03", "mouseup", 1]
            self.pressed += 1
            self.desk.tool(*words)
            self.released.append(time.monotonic())
            time.sleep(random.uniform(0.03, 0.1))

    def stop(self):
        self.stopped.set()
        self.join()
        self.desk.tool("mouseup", 1)


def start(desk):
    program = desk.launch()
    program.main_window()
    return program


def recovered(desk):
    return sorted(desk.songs.glob("recovered *.sng"))


def kill_at_a_random_moment(desk):
    """Returns the smallest and the largest number of notes that may be recovered."""
    program = start(desk)
    hand = Hand(desk, program)
    hand.start()
    time.sleep(random.uniform(0.1, 4.0))
    before = time.monotonic()
    program.process.kill()
    program.process.wait()
    hand.stop()
    return sum(1 for moment in hand.released if moment < before - HANDLED_S), hand.pressed


def check_comes_back(desk, fewest, most, what):
    """Starts the program again. It must put one of the allowed scores into the folder of songs."""
    program = start(desk)
    if fewest > 0:
        wait_until(lambda: recovered(desk), f"{what}: the recovered score")
    found = recovered(desk)
    check(len(found) <= 1, f"{what}: {len(found)} scores were recovered")
    line = found[0].read_bytes().split(b"\r\n")[0].decode() if found else "-1"
    allowed = {expected_row(notes): notes for notes in range(fewest, most + 1)}
    check(line in allowed, f"{what}: {fewest} to {most} notes were drawn, but this was recovered: {line}")
    if found:
        wait_until(lambda: found[0].name in program.complaints(), f"{what}: a line about {found[0].name}")
        found[0].unlink()
    program.press(14)
    check(program.process.wait(20) == 0, f"{what}: the program did not end normally")
    history = desk.home / ".local" / "state" / "velorin" / "history"
    left_over = [path for path in history.glob("*") if path.suffix != ".states"]
    check(not left_over, f"{what}: after a normal end there is still {left_over}")
    return allowed[line]


def test_kills(desk, times):
    """Kill -9 at random moments of drawing."""
    for turn in range(1, times + 1):
        fewest, most = kill_at_a_random_moment(desk)
        notes = check_comes_back(desk, fewest, most, f"kill {turn}")
        print(f"kill {turn}: {notes} notes were recovered, {fewest} to {most} are allowed", flush=True)


def draw(desk, notes):
    """Draws at least some notes; returns the program and their number."""
    program = start(desk)
    hand = Hand(desk, program)
    hand.start()
    wait_until(lambda: len(hand.released) >= notes, "the notes")
    hand.stop()
    time.sleep(HANDLED_S)
    return program, len(hand.released)


def test_signals(desk):
    """After a termination signal the program ends normally, and the score is recovered."""
    for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGSEGV):
        # A shell that starts this script in the background ignores some signals, and the program would inherit that.
        signal.signal(number, signal.SIG_DFL)
        program, notes = draw(desk, 2)
        program.process.send_signal(number)
        wanted = -number if number == signal.SIGSEGV else 0
        status = program.process.wait(20)
        check(status == wanted, f"{number.name}: the program ended with status {status}")
        check_comes_back(desk, notes, notes, number.name)


def save(desk, program):
    before = set(desk.songs.glob("*.sng"))
    program.press(3)
    desk.choose_file("Save music file", "kept", save_filter=1)
    wait_until(lambda: set(desk.songs.glob("*.sng")) - before, "the saved score")


def test_end_in_order(desk):
    """Exit and the close button keep an unsaved score, and do not keep a saved one."""
    program, notes = draw(desk, 2)
    program.press(14)
    check(program.process.wait(20) == 0, "exit: the program did not end normally")
    check_comes_back(desk, notes, notes, "exit")

    program, notes = draw(desk, 2)
    x, y, width, _ = program.place
    desk.click(x + width - CLOSE_FROM_RIGHT, y + 14)
    check(program.process.wait(20) == 0, "close: the program did not end normally")
    check_comes_back(desk, notes, notes, "the close button")

    program, _ = draw(desk, 2)
    save(desk, program)
    program.end()
    check_comes_back(desk, 0, 0, "exit after a save")


def test_offer(desk):
    """The next start offers the score in a notice, and a click on it opens the score."""
    program, _ = draw(desk, 1)
    program.press(14)
    program.process.wait(20)
    program = start(desk)
    file = wait_until(lambda: recovered(desk), "the recovered score")[0]
    check("was not saved" in program.complaints(), f"the notice says: {program.complaints()}")
    place = program.cell(0, line_of(0))
    blank = desk.screen.pixel(*place)
    x, y, width, height = desk.settled(desk.window("Velorin Notice"))
    desk.click(x + width // 2, y + height - 20)
    wait_until(lambda: desk.screen.pixel(*place) != blank, "a note of the recovered score")
    file.unlink()
    program.press(14)
    check(program.process.wait(20) == 0, "the program did not end in order")
    check(not recovered(desk), "an opened score without changes was kept again")


def test_converter(desk):
    """The converter lists the changes while the program runs, and writes a state of the score."""
    program, notes = draw(desk, 2)
    converter = desk.build.resolve() / "bin" / "velorin-convert"
    changes = desk.told([converter, "--history"]).splitlines()
    check(len(changes) >= notes, f"{notes} notes were drawn, but the history has {changes}")
    written = desk.home / "first.sng"
    first = len(changes) - notes + 1
    desk.told([converter, "--history", str(first), "-o", written])
    line = written.read_bytes().split(b"\r\n")[0].decode()
    check(line == expected_row(1), f"the state after the first note is written as {line}")
    program.process.kill()
    program.process.wait()
    check_comes_back(desk, notes, notes, "the converter")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--kills", type=int, default=5)
    options = arguments.parse_args()
    try:
        with Desk(options.build) as desk:
            test_kills(desk, options.kills)
            test_signals(desk)
            test_end_in_order(desk)
            test_offer(desk)
            test_converter(desk)
    except Failure as failure:
        print(f"kept_score_test: {failure}")
        sys.exit(1)


if __name__ == "__main__":
    main()
