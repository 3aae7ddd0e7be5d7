"""The converter on a command line: what it prints where, how it ends, and the report of a batch."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile

from desk import check, run
from score_text import Score
from waiting import PATIENCE_S


class Shell:
    """A folder with two scores, a file that is none, and a history without entries."""

    def __init__(self, build, folder):
        self.program = build.resolve() / "bin" / "velorin-convert"
        self.folder = folder
        self.environment = {**os.environ, "XDG_STATE_HOME": str(folder / "state")}
        song = Score(100)
        song.note(0, 0, 57, 1, 0)
        for name in ("one.sng", "two.sng"):
            (folder / name).write_bytes(song.text())
        (folder / "bad.sng").write_text("no score")

    def expect(self, arguments, status, output=b"", complaints=()):
        """Runs the converter; the output may be longer than what it must begin with."""
        done = subprocess.run([self.program, *arguments], cwd=self.folder, env=self.environment, capture_output=True,
                              timeout=PATIENCE_S, check=False)
        said = b"".join(b"velorin-convert: " + line + b"\n" for line in complaints)
        check(done.returncode == status, f"{arguments}: status {done.returncode}, {done.stderr}")
        check(done.stderr == said, f"{arguments}: standard error has {done.stderr}")
        check(done.stdout.startswith(output) and bool(done.stdout) == bool(output), f"{arguments}: {done.stdout}")

    def report(self, name="report.json"):
        return json.loads((self.folder / name).read_text("utf-8"))


def ask_for_help(shell):
    shell.expect(["--help"], 0, b"Usage: velorin-convert IN... (-o OUT | --to KIND [--out DIR])\n")
    shell.expect(["--version"], 0, b"velorin-convert 2.")
    shell.expect(["one.sng", "--loud"], 2, complaints=[b"unknown option --loud (see --help)"])
    shell.expect([], 2, complaints=[b"no score is given (see --help)"])


def read_an_empty_history(shell):
    shell.expect(["--history"], 0, complaints=[b"the history is empty"])
    shell.expect(["--history", "3", "-o", "state.sng"], 1, complaints=[b"the history has no entry 3, it is empty"])
    check(not (shell.folder / "state.sng").exists(), "an entry that does not exist became a file")


def convert_a_batch(shell):
    """One score of three is bad, and the others are converted. Files are in the order of the command line."""
    shell.expect(["--to", "mid", "--jobs", "2", "--report", "report.json", "one.sng", "bad.sng", "two.sng"], 1,
                 complaints=[b"bad.sng is not a score"])
    report = shell.report()
    check((report["converted"], report["failed"], report["skipped"]) == (2, 1, 0), f"the report counts {report}")
    check([(file["source"], file["outcome"]) for file in report["files"]] ==
          [("one.sng", "converted"), ("bad.sng", "failed"), ("two.sng", "converted")], f"the report has {report}")
    for name in ("one.mid", "two.mid"):
        check((shell.folder / name).read_bytes().startswith(b"MThd"), f"{name} is no MIDI file")


def convert_a_folder(shell):
    """The second time all outputs are newer than their scores. A MIDI file has the same output as the score of its name."""
    (shell.folder / "bad.sng").unlink()
    shell.expect(["--to", "wav", "--report", "report.json", "."], 0)
    check(shell.report()["converted"] == 2, f"the report of a folder has {shell.report()}")
    skipped = {file["source"]: file["reason"] for file in shell.report()["files"] if file["outcome"] == "skipped"}
    check(skipped == {"./one.mid": "the same output is made from ./one.sng",
                      "./two.mid": "the same output is made from ./two.sng"}, f"skipped are {skipped}")
    shell.expect(["--to", "wav", "--report", "report.json", "."], 0)
    check((shell.report()["converted"], shell.report()["skipped"]) == (0, 4), f"the second time: {shell.report()}")


def draw_two(shell):
    shell.expect(["--to", "png", "one.sng", "two.sng"], 0)
    for name in ("one.png", "two.png"):
        check((shell.folder / name).read_bytes().startswith(b"\x89PNG"), f"{name} is no picture")


def name_what_cannot_be(shell):
    """A report that cannot be written is a failure. Control characters in names do not reach the terminal."""
    shell.expect(["one.sng", "-o", "again.mid", "--report", "no/report.json"], 1,
                 complaints=[b"no/report.json cannot be written: No such file or directory"])
    check((shell.folder / "again.mid").exists(), "the score was not converted")
    shell.expect(["\x1b[2J.sng", "-o", "a.mid"], 1, complaints=[b"?[2J.sng cannot be read"])


def do_without_the_synthesizer(shell):
    """Sound files need no synthesizer. A module that is missing or damaged is named."""
    shell.expect(["one.sng", "-o", "sound.wav"], 0)
    alone = shell.folder / "alone"
    alone.mkdir()
    shell.program = shutil.copy(shell.program, alone)
    shell.expect(["sound.wav", "-o", "sound.mp3"], 0)
    check((shell.folder / "sound.mp3").stat().st_size > 1000, "the MP3 is empty")
    shell.expect(["one.sng", "-o", "again.wav"], 1,
                 complaints=[b"one.sng cannot be played: velorin-synth.so: cannot open shared object file: "
                             b"No such file or directory"])
    module = alone / "velorin-synth.so"
    module.write_bytes(b"no module")
    shell.expect(["one.sng", "-o", "again.wav"], 1,
                 complaints=[f"one.sng cannot be played: {module}: file too short".encode()])
    check(not (shell.folder / "again.wav").exists(), "a file that cannot be made is there")


def test(build):
    with tempfile.TemporaryDirectory(prefix="velorin-command-") as name:
        shell = Shell(build, pathlib.Path(name))
        ask_for_help(shell)
        read_an_empty_history(shell)
        convert_a_batch(shell)
        convert_a_folder(shell)
        draw_two(shell)
        name_what_cannot_be(shell)
        do_without_the_synthesizer(shell)


run(test)
