"""Conversions that are killed at random moments never leave half a file under a name, and the next one clears the rest.

The scores of a folder become files of every kind, with a report in another folder. The moments are random; whatever
they are, each file must be whole.
"""

import json
import pathlib
import random
import shutil
import signal
import subprocess
import tempfile
import time

from desk import check, run
from score_text import Score
from waiting import PATIENCE_S

KINDS = ["mid", "wav", "mp3", "png", "html", "sng"]
SCORES = 4
KILLS = 48


def convert(build, folder, kind, **options):
    command = [build.resolve() / "bin" / "velorin-convert", "--to", kind, "--rate", "8000", "--jobs", "2",
               "--out", "out", "--report", "reports/report.json", "in"]
    return subprocess.Popen(command, cwd=folder, stderr=subprocess.PIPE, **options)


def finish(process):
    _, complaint = process.communicate(timeout=PATIENCE_S)
    check(process.returncode == 0, f"status {process.returncode}: {complaint}")


def contents(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir() if not path.name.startswith(".")}


def hidden(folder):
    return [path.name for place in ("out", "reports") for path in (folder / place).iterdir() if path.name.startswith(".")]


def check_kills(build, folder, kind, rng):
    """Returns how many conversions were killed before their end."""
    for name in ("out", "reports"):
        shutil.rmtree(folder / name, ignore_errors=True)
        (folder / name).mkdir()
    begun = time.monotonic()
    finish(convert(build, folder, kind))
    lasts = time.monotonic() - begun
    whole = contents(folder / "out")
    check(len(whole) == SCORES, f"{kind}: the folder has {sorted(whole)}")
    killed = 0
    for _ in range(KILLS // len(KINDS)):
        shutil.rmtree(folder / "out")
        (folder / "out").mkdir()
        process = convert(build, folder, kind)
        try:
            process.wait(rng.uniform(0.0, lasts))
        except subprocess.TimeoutExpired:
            process.kill()
        process.communicate(timeout=PATIENCE_S)
        killed += process.returncode == -signal.SIGKILL
        for name, content in contents(folder / "out").items():
            check(content == whole.get(name), f"{name} is not whole after a kill")
        for name, content in contents(folder / "reports").items():
            check(len(json.loads(content)["files"]) == SCORES, f"{name} is not whole after a kill")
    finish(convert(build, folder, kind))
    check(contents(folder / "out") == whole, f"{kind}: other files after the kills")
    check(not hidden(folder), f"{kind}: the kills left {hidden(folder)}")
    return killed


def test(build):
    rng = random.Random(1)
    with tempfile.TemporaryDirectory(prefix="velorin-kill-") as name:
        folder = pathlib.Path(name)
        (folder / "in").mkdir()
        for number in range(SCORES):
            song = Score(300)
            for column in range(0, 200, 2):
                song.note(number, column, 40 + column % 40, 2, 24)
            (folder / "in" / f"{number}.sng").write_bytes(song.text())
        killed = sum(check_kills(build, folder, kind, rng) for kind in KINDS)
        check(killed > 0, "no conversion was killed before its end")


run(test)
