"""Runs the tests of a build with switched changes: once to learn what each test reaches, then for each change those that reach it."""

import functools
import hashlib
import json
import os
import pathlib
import resource
import subprocess
import tempfile
import time

from builder import OTHERS
from changes import NUMBERS

ADDRESS_SPACE = 8 << 30  # bytes; a change that asks for memory without end fails at once
TRANSCRIPTS_AT_ONCE = 10
FEWER = {"VELORIN_HISTORY_SESSIONS": "20", "VELORIN_ROUND_TRIPS": "6", "VELORIN_LOOP_HOURS": "0.05"}  # a tenth of what is random or long
LONG_S = 0.5  # tests that take longer run after all others


@functools.lru_cache(maxsize=None)
def digest(file):
    return hashlib.sha256(pathlib.Path(file).read_bytes()).hexdigest()


class Group:
    """Tests that one process runs: a unit test program with some of its tests, or some transcripts."""

    def __init__(self, command, name, seconds):
        self.command, self.name, self.seconds = command, name, seconds


class Runner:
    def __init__(self, tree, build):
        self.tree, self.build = tree, build
        self.units = {}  # program -> [(test, seconds, numbers)]; the test "" is what runs outside the tests
        self.transcripts = []  # [(file, seconds, numbers)]

    def _run(self, command, limit_s, **more):
        """Whether the command ends with status 0; None if it takes too long. It has a home and a temporary folder of its own."""
        with tempfile.TemporaryDirectory(prefix="mutation-") as folder:
            names = ("HOME", "TMPDIR", "XDG_RUNTIME_DIR")
            own = {name: os.path.join(folder, name.lower()) for name in names}  # opened scores get names in lower case
            for path in own.values():
                os.mkdir(path, 0o700)
            environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LD_LIBRARY_PATH": str(self.build / "bin"), **FEWER, **own, **more}
            try:
                return subprocess.run(command, env=environment, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                      timeout=limit_s, check=False, preexec_fn=lambda: resource.setrlimit(
                                          resource.RLIMIT_AS, (ADDRESS_SPACE, ADDRESS_SPACE))).returncode == 0
            except subprocess.TimeoutExpired:
                return None

    def _reached(self, command):
        """Runs a command without a change: whether it passes, its seconds, the numbers reached at its end, and its tests' lines."""
        with tempfile.TemporaryDirectory(prefix="mutation-") as folder:
            file = pathlib.Path(folder) / "reached"
            file.write_bytes(bytes(NUMBERS + 1))
            begin = time.monotonic()
            passes = self._run(command, 900, VELORIN_MUTATION_REACHED=str(file))
            seconds = time.monotonic() - begin
            numbers = {number for number, byte in enumerate(file.read_bytes()) if byte}
            lines = pathlib.Path(f"{file}.tests")
            return passes, seconds, numbers, lines.read_text().splitlines() if lines.exists() else []

    def record_units(self, pool):
        """Runs the unit tests without a change, a program again if it fails, since the machine may be busy. Returns what fails twice."""
        programs = [path for path in sorted(self.build.glob("tests/unit/**/unit_*"))
                    if path.is_file() and os.access(path, os.X_OK) and path.relative_to(self.build).parts[2] not in OTHERS]
        return self._record(pool, [[str(path)] for path in programs])

    def record_transcripts(self, pool):
        """The same for the transcripts."""
        program = self.build / "bin" / "velorin-transcript"
        return self._record(pool, [[str(program), str(file)] for file in sorted((self.tree / "tests" / "transcripts").rglob("*.txt"))])

    def _record(self, pool, commands):
        failed = []
        kept = self.build / "reached.jsonl"
        known = dict(map(json.loads, kept.read_text().splitlines())) if kept.exists() else {}

        def of(command):
            """What the command reaches; from the last time if its program and its transcript are the same."""
            key = " ".join([*command, *map(digest, command)])
            if key not in known:
                passes, seconds, numbers, lines = self._reached(command)
                if not passes:
                    passes, seconds, numbers, lines = self._reached(command)
                if not passes:
                    return None
                known[key] = [seconds, sorted(numbers), lines]
                with open(kept, "a", encoding="utf-8") as file:
                    file.write(json.dumps([key, known[key]]) + "\n")
            return known[key]

        for command, reached in zip(commands, pool.map(of, commands)):
            if reached is None:
                failed.append(" ".join(command))
                continue
            seconds, numbers, lines = reached
            if len(command) == 2:
                self.transcripts.append((command[1], seconds, set(numbers)))
                continue
            tests = [("", seconds, set(numbers))]
            for line in lines:
                elapsed, name, places = line.split("\t")
                tests.append((name, int(elapsed) / 1000, set(map(int, places.split()))))
            self.units[command[0]] = tests
        return failed

    def groups(self, change):
        """The processes that reach a change, those of its own folder first: short unit tests, transcripts, long unit tests.

        The other short tests of its own folder come last: what a process computes once is reached by its first test only."""
        number, folder = change.number, change.path.split("/")[1]
        short, others, scripts, long = [], [], [], []
        for program, tests in self.units.items():
            name = pathlib.Path(program).name
            named = [(test, seconds) for test, seconds, _ in tests if test]
            reaching = {test for test, _, numbers in tests if number in numbers}
            if "" in reaching:
                reaching = {test for test, _ in named}
            parts = [([one for one in named if one[0] in reaching and one[1] <= LONG_S], short),
                     ([one for one in named if one[0] in reaching and one[1] > LONG_S], long)]
            if reaching and name.startswith(f"unit_{folder}"):
                parts.append(([one for one in named if one[0] not in reaching and one[1] <= LONG_S], others))
            for some, into in parts:
                if some:
                    chosen = ":".join(test for test, _ in some)
                    into.append(Group([program, f"--gtest_filter={chosen}", "--gtest_fail_fast"], name, sum(seconds for _, seconds in some)))
        for some in (short, long):
            some.sort(key=lambda group: (not group.name.startswith(f"unit_{folder}"), group.seconds))
        short += others
        reaching = sorted((seconds, file) for file, seconds, numbers in self.transcripts if number in numbers)
        for first in range(0, len(reaching), TRANSCRIPTS_AT_ONCE):
            some = reaching[first:first + TRANSCRIPTS_AT_ONCE]
            scripts.append(Group([str(self.build / "bin" / "velorin-transcript"), *[file for _, file in some]], "transcripts",
                               sum(seconds for seconds, _ in some)))
        return short, scripts, long

    def noticed_by(self, change, stage):
        """The program that fails twice with the change, or hangs; None if all pass; "" if no test reaches it.

        Runs the groups of one stage, from 0 on: short unit tests, transcripts, long unit tests."""
        groups = self.groups(change)
        for group in groups[stage]:
            def passes(one=group):
                return self._run(one.command, 15 + 8 * one.seconds, VELORIN_MUTATION=str(change.number))

            result = passes()
            if result is None or not (result or passes()):
                return group.name
        return None if any(groups) or stage == 0 else ""
