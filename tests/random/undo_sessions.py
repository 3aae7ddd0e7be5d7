#!/usr/bin/env python3
"""Random sessions in the real windows, off screen: undo to the beginning and redo to the end give every state again.

Each session is a transcript of random gestures and commands. The runner answers it, and this script compares the grids,
the tempo and the instruments of the rows in every state with those when the state was made.
"""

import argparse
import pathlib
import random
import re
import subprocess
import sys
import tempfile

STEPS = 14
ROWS = 13
ASKED = ["grids", "var Tempo", *[f"var RowInstrument({row})" for row in range(ROWS)]]
SCORE = '"{},-1,{}\\r\\n24,0,24\\r\\n"'


def drag(control, button, height, rng):
    x, y = rng.randint(0, 450), rng.randint(0, height)
    lines = [f"mouse {control} down {button} {x} {y}"]
    for _ in range(rng.randint(0, 3)):
        x += rng.randint(-15, 40)
        lines.append(f"mouse {control} move {button} {x} {y}")
    return [*lines, f"mouse {control} up {button} {x} {y}"]


def gesture(rng):
    """The commands of one random step."""
    return rng.choice([
        lambda: drag("MusicBox", 1, 250, rng),
        lambda: drag("MusicBox", 1, 250, rng),
        lambda: drag("MusicBox", 2, 250, rng),
        lambda: drag("Beatbox", 1, 40, rng),
        lambda: drag("Pic1", rng.choice([1, 2]), 50, rng),
        lambda: [f"set Form3.TrackSel({rng.randint(0, 12)}) 1"],
        lambda: [f"set Form3.Combo1 {rng.randint(0, 127)}"],
        lambda: [f"set Form3.Combo5 {rng.randint(0, 46)}"],
        lambda: [f"set Form3.HScroll1 {rng.randint(20, 300)}"],
        lambda: [f"let SelectStart {(a := rng.randint(0, 20))}", f"let SelectEnd {a + rng.randint(0, 9)}",
                 f"key MusicBox {rng.choice(['Ctrl+C', 'Ctrl+X'])}"],
        lambda: [f"let StartColumn {rng.randint(0, 40)}", f"key MusicBox {rng.choice(['Ctrl+V', 'Ctrl+Shift+V'])}"],
        lambda: [f"let StartColumn {rng.randint(0, 40)}", f"call InsertColumns {rng.randint(1, 9)}"],
        lambda: ["call Form2.Cmd2_Click 17"],
        lambda: ["key MusicBox Ctrl+N"],
        lambda: ["call mNew_Click"],
        lambda: ["call Comm2_Click"],
        lambda: [f"write @/some.sng {SCORE.format(rng.randint(0, 127), rng.randint(0, 127))}", "answer @/some.sng",
                 "call Command33_Click"],
        lambda: ["key MusicBox Ctrl+Z"],
        lambda: ["key MusicBox Ctrl+Y"],
        lambda: [f"set Form1.HScroll1 {rng.randint(20, 300)}"],
    ])()


def transcript(seed):
    rng = random.Random(seed)
    lines = ["call Cmd2_Click 10", "history", *ASKED]
    for _ in range(STEPS):
        lines += [*gesture(rng), "history", *ASKED]
    for key in ["Ctrl+Z"] * (STEPS + 1) + ["Ctrl+Y"] * (STEPS + 1):
        lines += [f"key MusicBox {key}", "history", *ASKED]
    return "".join(f"> {line}\n" for line in lines)


def answers(printed):
    """(command, answer lines) of a printed transcript."""
    told = []
    for line in printed.splitlines():
        if line.startswith("> "):
            told.append((line[2:], []))
        elif told:
            told[-1][1].append(line)
    return told


def states(told):
    """(number of the current state, what was asked of it) after each step; 0 is the sheet of the start."""
    found = []
    for place, (command, lines) in enumerate(told):
        if command == "history":
            now = [line for line in lines if re.search(r", now$", line)]
            number = int(now[0].split()[0]) if now else 0
            found.append((number, [answer for _, answer in told[place + 1:place + 1 + len(ASKED)]]))
    return found


def check(seed, runner, folder):
    """Returns how often a state was seen again, or raises."""
    file = folder / f"{seed}.txt"
    file.write_text(transcript(seed))
    printed = subprocess.run([runner, "--print", file], capture_output=True, text=True, check=True).stdout
    seen, again = {}, 0
    for number, told in states(answers(printed)):
        known = seen.setdefault(number, told)
        # Choosing a row may give it an instrument, which is no change of its own and comes with the next state.
        if known[:2] != told[:2]:
            raise AssertionError(f"session {seed}: state {number} has come back as another one; see {file}")
        again += known is not told
    last = [number for number, _ in states(answers(printed))]
    if last[-1 - (STEPS + 1)] != 0:
        raise AssertionError(f"session {seed}: undo does not lead to the start; see {file}")
    file.unlink()
    return again


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--sessions", type=int, default=20)
    arguments.add_argument("--seed", type=int, default=1)
    options = arguments.parse_args()
    runner = options.build.resolve() / "bin" / "velorin-transcript"
    folder = pathlib.Path(tempfile.mkdtemp(prefix="velorin-undo-"))
    again = 0
    try:
        for seed in range(options.seed, options.seed + options.sessions):
            again += check(seed, runner, folder)
    except AssertionError as problem:
        print(f"undo_sessions: {problem}")
        sys.exit(1)
    folder.rmdir()
    print(f"{options.sessions} sessions, {again} states seen again")
    if again < options.sessions * STEPS:
        sys.exit("undo_sessions: too few states were seen again for a check")


main()
