"""Nothing is lost: whatever ends the program, the score as it stood after the last finished change comes back."""

import argparse
import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import threading
import time

from desk import Desk, check, wait_for

MUSIC_LEFT, MUSIC_TOP = 55, 96  # of the music tableau in the main window, pixels
CELL = 12
TOP_PITCH = 55
WIDTH_OF_A_NOTE = 3  # columns
STEP = 4  # columns from one note to the next
HANDLED_S = 0.1  # so long after the release of a button its handler has long returned


def pitch_of(note):
    """Each note has a line of its own, well below the percussion strip."""
    return TOP_PITCH + 8 + note % 20


def expected_row(notes):
    """The first line of the score file after so many notes."""
    cells = []
    for note in range(notes):
        pitch = pitch_of(note)
        cells += [pitch] + [1000 + pitch] * (WIDTH_OF_A_NOTE - 1) + [-1] * (STEP - WIDTH_OF_A_NOTE)
    while cells and cells[-1] == -1:
        cells.pop()
    return ",".join(map(str, cells)) or "-1"


class Hand(threading.Thread):
    """Draws one note after the other, until the program is gone."""

    def __init__(self, desk, left, top):
        super().__init__(daemon=True)
        self.desk, self.left, self.top = desk, left, top
        self.pressed, self.released = 0, []
        self.stopped = threading.Event()

    def run(self):
        for note in range(20):
            if self.stopped.is_set():
                return
            x = self.left + MUSIC_LEFT + note * STEP * CELL + CELL // 2
            y = self.top + MUSIC_TOP + (pitch_of(note) - TOP_PITCH) * CELL + CELL // 2
            self.pressed += 1
            # Slowly: the program has to have served a press before the next move comes.
            words = ["mousemove", x, y, "sleep", "0.03", "mousedown", 1]
            for column in range(1, WIDTH_OF_A_NOTE):
                words += ["sleep", "0.03", "mousemove", x + column * CELL, y]
            words += ["sleep", "0.03", "mouseup", 1, "sleep", "0.03"]
            subprocess.run(["xdotool", *map(str, words)], env=self.desk.env, check=False)
            self.released.append(time.monotonic())
            time.sleep(random.uniform(0.0, 0.1))


def songs(desk):
    return desk.build / "bin" / "Songs"


def state(desk):
    return desk.home / ".local" / "state" / "velorin"


def recovered(desk):
    return sorted(songs(desk).glob("recovered *.sng"))


def first_line(path):
    return path.read_bytes().split(b"\r\n")[0].decode()


def start(desk):
    """Starts the program and returns the place of its window."""
    desk.start_program()
    time.sleep(0.7)
    left, top, _, _ = desk.geometry(desk.main)
    return left, top


def finish(desk):
    """Ends the program as its exit button does."""
    left, top, _, _ = desk.geometry(desk.main)
    desk.mouse("mousemove", left + 26 + 550 + 18, top + 25 + 5 + 18, "click", 1)
    desk.program.wait(15)


def kill_at_a_random_moment(desk):
    """Returns the smallest and the largest number of notes that may come back."""
    hand = Hand(desk, *start(desk))
    hand.start()
    time.sleep(random.uniform(0.1, 3.5))
    before = time.monotonic()
    desk.program.send_signal(signal.SIGKILL)
    desk.program.wait()
    hand.stopped.set()
    hand.join()
    desk.mouse("mouseup", 1)
    return sum(1 for moment in hand.released if moment < before - HANDLED_S), hand.pressed


def check_comes_back(desk, fewest, most, what):
    """Starts the program again; what it puts into the folder of songs has to be one of the scores allowed."""
    start(desk)
    allowed = {expected_row(notes): notes for notes in range(fewest, most + 1)}
    if fewest > 0:
        wait_for(lambda: recovered(desk), 5)
    found = recovered(desk)
    check(len(found) <= 1, f"{what}: {len(found)} scores came back")
    line = first_line(found[0]) if found else "-1"
    check(line in allowed, f"{what}: {fewest} to {most} notes were drawn, and this came back: {line}")
    if found:
        check(found[0].name in desk.log(), f"{what}: nothing is said of {found[0].name}")
        found[0].unlink()
    finish(desk)
    left_over = list(state(desk).glob("*")) if state(desk).exists() else []
    check(not left_over, f"{what}: after an end in order there are still {left_over}")
    return allowed[line]


def test_kills(desk, times):
    """Kill -9 at random moments of drawing."""
    for turn in range(times):
        fewest, most = kill_at_a_random_moment(desk)
        notes = check_comes_back(desk, fewest, most, f"kill {turn + 1}")
        print(f"kill {turn + 1}: {notes} notes came back, {fewest} to {most} allowed", flush=True)


def draw(desk, notes):
    hand = Hand(desk, *start(desk))
    hand.start()
    wait_for(lambda: len(hand.released) >= notes, 20, 0.01)
    hand.stopped.set()
    hand.join()
    time.sleep(HANDLED_S)
    return len(hand.released)


def test_signals(desk):
    """A signal that asks for the end lets the program end in its usual order, and the score comes back."""
    for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGSEGV):
        notes = draw(desk, 3)
        desk.program.send_signal(number)
        status = desk.program.wait(15)
        wanted = -number if number == signal.SIGSEGV else 0
        check(status == wanted, f"{number.name}: the program ended with status {status}")
        check_comes_back(desk, notes, notes, number.name)


def test_end_in_order(desk):
    """After the exit button nothing comes back."""
    draw(desk, 2)
    finish(desk)
    check_comes_back(desk, 0, 0, "exit")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--kills", type=int, default=5)
    options = arguments.parse_args()
    with Desk(options.build, width=1400, sound=False) as desk:
        # A program folder of its own, so that no other test's songs are in it.
        own = desk.folder / "program"
        (own / "bin").mkdir(parents=True)
        shutil.copy(desk.build / "bin" / "velorin", own / "bin" / "velorin")
        desk.build = own
        test_kills(desk, options.kills)
        test_signals(desk)
        test_end_in_order(desk)


if __name__ == "__main__":
    sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
    main()
