"""Imports a MIDI file with velorin-convert, and renders files with it."""

import dataclasses
import json
import pathlib
import subprocess
import time

MOST_SECONDS = 120  # for one file


@dataclasses.dataclass
class Imported:
    status: int
    words: str     # what it wrote to standard error
    seconds: float
    account: dict  # what the JSON report says of the import; empty if there is none
    scores: list   # paths, in the order in which they play


class Converter:
    def __init__(self, program):
        self.program = program

    def run(self, *arguments):
        """Exit status, standard error, and the seconds that it took."""
        start = time.monotonic()
        try:
            done = subprocess.run([self.program, *arguments], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                                  text=True, errors="replace", timeout=MOST_SECONDS, check=False)
        except subprocess.TimeoutExpired:
            return -1, f"still running after {MOST_SECONDS} s", MOST_SECONDS
        return done.returncode, done.stderr, time.monotonic() - start

    def import_file(self, source, folder):
        report = folder / "report.json"
        status, words, seconds = self.run(source, "-o", folder / "song.sng", "--report", report)
        account = json.loads(report.read_text())["files"][0].get("import", {}) if status == 0 else {}
        scores = [pathlib.Path(score["target"]) for score in account.get("scores", [])]
        return Imported(status, words, seconds, account, scores)

    def render(self, source, target, rate):
        return self.run(source, "-o", target, "--rate", str(rate))[0] == 0
