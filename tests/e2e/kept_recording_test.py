"""A recording is kept however it ends: by a crash, a signal, the exit, or the close button of its toolbar."""

import signal

from desk import Desk, check, run, wait_until
from files import size_of
from recorded import START, frames_of, open_score, open_toolbar
from tune import melody_and_beats

MELODY = [60, 65]
FIRST_BEAT = 400  # at column 400, so that the song is longer than this test
CLOSE = "Close"
ENOUGH = 200_000  # bytes, a little more than a second


def hidden(desk):
    return list(desk.songs.glob(".recording-*.part"))


def kept(desk):
    return sorted(desk.songs.glob("recording *.wav"))


def start_recording(desk):
    """Waits until a part of the recording is in the hidden file."""
    program = desk.launch()
    program.main_window()
    open_score(desk, program, "long.sng", MELODY[0])
    open_toolbar(desk, program)
    desk.click(*program.place_in("Recording Toolbar", START))
    wait_until(lambda: any(size_of(file) > ENOUGH for file in hidden(desk)), "the recording's hidden file")
    return program


def check_one_more(desk, before, what):
    new = wait_until(lambda: set(kept(desk)) - before, f"{what}: the recording")
    wait_until(lambda: not hidden(desk), f"{what}: the end of the hidden file")
    check(len(new) == 1, f"{what}: there are {len(new)} new recordings")
    [file] = new
    check(4 * frames_of(file.read_bytes()) > ENOUGH // 2, f"{what}: {file.name} is short")
    return file


def test_crash(desk):
    """The next start after a crash finishes the recording and reports it."""
    program = start_recording(desk)
    program.process.kill()
    program.process.wait()
    check(not kept(desk) and len(hidden(desk)) == 1, "a killed program finished its recording")
    program = desk.launch()
    program.main_window()
    file = check_one_more(desk, set(), "crash")
    wait_until(lambda: file.name in program.complaints(), "crash: a line about the recording")
    program.press(14)
    check(program.process.wait(20) == 0, "the program did not end with status 0 after a crash")


def test_end(desk, what, end):
    before = set(kept(desk))
    program = start_recording(desk)
    end(program)
    check(program.process.wait(20) == 0, f"{what}: the program did not end with status 0")
    file = check_one_more(desk, before, what)
    check(file.name in program.complaints(), f"{what}: standard error does not mention {file.name}")


def test_toolbar(desk):
    before = set(kept(desk))
    program = start_recording(desk)
    desk.click(*program.place_in("Recording Toolbar", CLOSE))
    file = check_one_more(desk, before, "toolbar")
    wait_until(lambda: file.name in program.complaints(), "toolbar: a line about the recording")
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
