"""A recording outlasts whatever ends it: a crash, a signal, the exit, and the close button of its toolbar."""

import signal

from desk import Desk, check, run, wait_until
from recorded import START, frames_of, open_score, open_toolbar
from tune import melody_and_beats

MELODY = [60, 65]
FIRST_BEAT = 400  # at column 400, so that the song lasts longer than any of this
CLOSE = (511, 14)
ENOUGH = 200_000  # bytes, somewhat over a second


def hidden(desk):
    return list(desk.songs.glob(".recording-*.part"))


def kept(desk):
    return sorted(desk.songs.glob("recording *.wav"))


def start_recording(desk):
    """Returns when there is something to lose."""
    program = desk.launch()
    program.main_window()
    open_score(desk, program, "long.sng", MELODY[0])
    open_toolbar(desk, program)
    desk.click(*program.place_in("Recording Toolbar", START))
    wait_until(lambda: any(file.stat().st_size > ENOUGH for file in hidden(desk)), "the recording's hidden file")
    return program


def check_one_more(desk, before, what):
    new = wait_until(lambda: set(kept(desk)) - before, f"{what}: the recording")
    wait_until(lambda: not hidden(desk), f"{what}: the end of the hidden file")
    check(len(new) == 1, f"{what}: there are {len(new)} new recordings")
    [file] = new
    check(4 * frames_of(file.read_bytes()) > ENOUGH // 2, f"{what}: {file.name} is short")
    return file


def test_crash(desk):
    """What a crash leaves is finished at the next start, which says so."""
    program = start_recording(desk)
    program.process.kill()
    program.process.wait()
    check(not kept(desk) and len(hidden(desk)) == 1, "a program that is killed finishes nothing")
    program = desk.launch()
    program.main_window()
    file = check_one_more(desk, set(), "crash")
    wait_until(lambda: file.name in program.complaints(), "crash: a line that tells of the recording")
    program.press(14)
    check(program.process.wait(20) == 0, "the program does not end well after a crash")


def test_end(desk, what, end):
    before = set(kept(desk))
    program = start_recording(desk)
    end(program)
    check(program.process.wait(20) == 0, f"{what}: the program does not end well")
    file = check_one_more(desk, before, what)
    check(file.name in program.complaints(), f"{what}: nothing on standard error tells of {file.name}")


def test_toolbar(desk):
    before = set(kept(desk))
    program = start_recording(desk)
    desk.click(*program.place_in("Recording Toolbar", CLOSE))
    file = check_one_more(desk, before, "toolbar")
    wait_until(lambda: file.name in program.complaints(), "toolbar: a line that tells of the recording")
    program.process.kill()
    program.process.wait()


def test(build):
    signal.signal(signal.SIGTERM, signal.SIG_DFL)
    with Desk(build) as desk:
        desk.songs.mkdir()
        (desk.songs / "long.sng").write_bytes(melody_and_beats(MELODY, FIRST_BEAT).text())
        test_crash(desk)
        test_end(desk, "SIGTERM", lambda program: program.process.terminate())
        test_end(desk, "exit", lambda program: program.press(14))
        test_toolbar(desk)


run(test)
