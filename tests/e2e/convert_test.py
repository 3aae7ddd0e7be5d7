"""An interrupted conversion leaves no incomplete file and keeps existing files, and the shell sees the signal.

A killed conversion leaves a hidden partial file, which the next one removes.
"""

import pathlib
import signal
import subprocess
import tempfile

from desk import check, run, wait_until
from files import size_of
from score_text import Score
from waiting import PATIENCE_S

# Tempo 1 makes a column 12 seconds long, so this is three hours of sound.
LONG_SONG_TEMPO = 1
LAST_COLUMN = 900
LENGTH = b"velorin-convert: long.wav will be 3:00:36 of sound, 347 MB\n"
OLDER = b"what was there before"


def start(build, folder, ignored=()):
    """Starts the conversion and waits until it writes. Signals have their default actions, as in a terminal."""
    def signals():
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(number, signal.SIG_IGN if number in ignored else signal.SIG_DFL)

    command = [build.resolve() / "bin" / "velorin-convert", "long.sng", "-o", "long.wav", "--rate", "8000",
               "--most-minutes", "200"]
    before = set(parts(folder))
    process = subprocess.Popen(command, cwd=folder, stderr=subprocess.PIPE, preexec_fn=signals)
    wait_until(lambda: set(parts(folder)) - before or process.poll() is not None, "the start of the file")
    check(process.poll() is None, f"the conversion ended by itself with status {process.returncode}")
    return process


def parts(folder):
    return [path.name for path in folder.iterdir() if path.name.endswith(".part") and size_of(path) > 10_000]


def check_ends_by(process, folder, number):
    process.send_signal(number)
    _, complaint = process.communicate(timeout=PATIENCE_S)
    check(process.returncode == -number, f"status {process.returncode} after signal {number}")
    check(complaint == LENGTH + b"velorin-convert: long.wav was interrupted\n", f"standard error has: {complaint}")
    there = sorted(path.name for path in folder.iterdir())
    check(there == ["long.sng", "long.wav"], f"after signal {number} the folder has {there}")
    check((folder / "long.wav").read_bytes() == OLDER, "the existing file has changed")


def test(build):
    with tempfile.TemporaryDirectory(prefix="velorin-convert-") as name:
        folder = pathlib.Path(name)
        song = Score(LONG_SONG_TEMPO)
        song.note(0, LAST_COLUMN, 57, 1, 0)
        (folder / "long.sng").write_bytes(song.text())
        (folder / "long.wav").write_bytes(OLDER)
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            check_ends_by(start(build, folder), folder, number)
        # As under nohup: the terminal closes, and the conversion continues.
        process = start(build, folder, ignored=[signal.SIGHUP])
        process.send_signal(signal.SIGHUP)
        check_ends_by(process, folder, signal.SIGTERM)
        check_clears_away(build, folder)


def check_clears_away(build, folder):
    killed = start(build, folder)
    killed.kill()
    killed.communicate(timeout=PATIENCE_S)
    check(len(parts(folder)) == 1, "a killed conversion left no partial file")
    running = start(build, folder)
    check(len(parts(folder)) == 1, f"during a running conversion the folder has {parts(folder)}")
    # It is stopped, or a fast machine would finish it meanwhile.
    running.send_signal(signal.SIGSTOP)
    # A second conversion is refused for its length. It must leave the partial file of the first one alone.
    command = [build.resolve() / "bin" / "velorin-convert", "long.sng", "-o", "other.wav"]
    refused = subprocess.run(command, cwd=folder, stderr=subprocess.PIPE, timeout=PATIENCE_S)
    check(refused.returncode == 1, f"status {refused.returncode} for a song of three hours")
    check(refused.stderr.startswith(b"velorin-convert: long.sng is too long: 3:00:36 of sound"),
              f"standard error has: {refused.stderr}")
    check(len(parts(folder)) == 1, "the partial file of a running conversion was removed")
    running.send_signal(signal.SIGCONT)
    check_ends_by(running, folder, signal.SIGTERM)


run(test)
