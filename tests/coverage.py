"""Runs the tests of a build with coverage, and prints how much of each folder of src/ they reach.

    python3 tests/coverage.py BUILD                            ends with status 1 if a test fails or a share is too small
    python3 tests/coverage.py BUILD --no-run                   the table of the last run
    python3 tests/coverage.py BUILD --no-run --gaps playback   the lines and branches of a folder that no test reaches

Each line with code counts once, however many programs contain it. A branch is one of the two ways of a condition; `a && b` has
two conditions. What a compiler adds, such as the way of an exception, is none. Only generated code is left out. Clang does not
count the conditions in macros of the system, so an assert has no branch.
"""

import argparse
import collections
import json
import os
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
SOURCES = HERE.parent / "src"
VERSION = "-14"  # of llvm's tools
LOGIC = {"convert", "editing", "entry", "history", "importing", "midifile", "model", "platform", "playback",
         "recording", "session", "studio", "tutorial"}
KINDS = ("lines", "branches")
# The least shares, in percent: of every folder of the logic, of the logic as a whole, and of all.
LEAST_OF_LOGIC = {"lines": 95.0, "branches": 85.0}
LEAST_OF_ALL = {"lines": 90.0, "branches": 75.0}
CONSTANTS = {"true", "false"}  # `while (true)` has one way
BRANCH_REGION, EXPANSION_REGION = 4, 1  # kinds of regions in llvm's report


class Reached:
    """How often each line and each branch of one file ran. Lines by number; branches by place and way."""

    def __init__(self):
        self.lines = {}
        self.branches = collections.Counter()

    def counts(self, kind):
        return getattr(self, kind).values()


class Share:
    def __init__(self, files, kind):
        counts = [count for file in files for count in file.counts(kind)]
        self.there = len(counts)
        self.reached = sum(count > 0 for count in counts)
        self.percent = 100.0 * self.reached / self.there if self.there else 100.0

    def __str__(self):
        return f"{self.reached} of {self.there} | {self.percent:.1f} %"


def source(name, known={}):
    """The path below src/, or None. Headers have several names, since libraries include them through links."""
    if name not in known:
        path = pathlib.Path(os.path.realpath(name))
        known[name] = path.relative_to(SOURCES) if path.is_relative_to(SOURCES) else None
    return known[name]


def starts_region(segment):
    _, _, _, has_count, is_entry, is_gap = segment
    return has_count and is_entry and not is_gap


def counts_of_lines(segments):
    """The highest count of each line with code. A segment is valid up to the next: (line, column, count, has a count,
    begins a region, is a gap)."""
    wrapped = None  # the segment in which a line begins
    by_line = collections.defaultdict(list)
    for segment in segments:
        by_line[segment[0]].append(segment)
    for line in range(min(by_line), max(by_line) + 1) if by_line else []:
        here = by_line.get(line, [])
        starts = [segment for segment in here if starts_region(segment)]
        if wrapped and wrapped[5] and not starts:
            # After an assert, the next statement continues its region, and the gap between them has no count.
            starts = [segment for segment in here if segment[3] and not segment[5]]
            wrapped = None if starts else wrapped
        is_skipped = here and not here[0][3] and here[0][4]
        if not is_skipped and (starts or (wrapped and wrapped[3])):
            yield line, max([segment[2] for segment in starts] + ([wrapped[2]] if wrapped else []))
        wrapped = here[-1] if here else wrapped


def places_of_expansions(function):
    """For each macro that a function uses: the file and the place of its use."""
    places = {}
    for *place, _, file, expanded, kind in function["regions"]:
        if kind == EXPANSION_REGION:
            places[expanded] = (file, tuple(place))
    return places


def branches_of(function):
    """Each branch with its file, its place, and how often both ways were taken. A branch in a macro is where the macro is used."""
    expansions = places_of_expansions(function)
    for *place, taken, not_taken, file, _, _ in function["branches"]:
        place = (tuple(place),)
        while file in expansions:
            file, used = expansions[file]
            place = (used, *place)
        yield function["filenames"][file], place, taken, not_taken


def is_constant(path, place):
    first_line, first, last_line, last = place[0]
    text = (SOURCES / path).read_text("utf-8").splitlines()[first_line - 1]
    return first_line == last_line and text[first - 1:last - 1] in CONSTANTS


def reached_files(report):
    files = collections.defaultdict(Reached)
    for file in report["files"]:
        if path := source(file["filename"]):
            lines = files[path].lines
            for line, count in counts_of_lines(file["segments"]):
                lines[line] = max(lines.get(line, 0), count)
    for function in report["functions"]:
        for name, place, taken, not_taken in branches_of(function):
            if (path := source(name)) and not is_constant(path, place):
                files[path].branches[place, True] += taken
                files[path].branches[place, False] += not_taken
    return dict(sorted(files.items()))


def programs_of(build):
    found = [*build.glob("tests/unit/**/unit_*"), *build.glob("bin/*")]
    return sorted(file for file in found if file.is_file() and os.access(file, os.X_OK))


def run_tests(build, profiles, end_to_end):
    profiles.mkdir(exist_ok=True)
    for old in profiles.iterdir():
        old.unlink()
    # %m: runs of the same program are added up in one file; 4 files, so runs at the same time seldom wait for each other.
    environment = {**os.environ, "LLVM_PROFILE_FILE": str(profiles / "%4m.profraw")}
    done = subprocess.run([sys.executable, str(HERE / "run_all.py"), str(build), "--end-to-end", end_to_end],
                          env=environment, check=False)
    return done.returncode == 0


def llvm_report(build, profiles):
    merged = profiles / "all.profdata"
    raw = sorted(str(file) for file in profiles.glob("*.profraw"))
    if not raw:
        sys.exit("no test has left a profile")
    subprocess.run([f"llvm-profdata{VERSION}", "merge", "-sparse", *raw, "-o", str(merged)], check=True)
    programs = programs_of(build)
    objects = [word for program in programs[1:] for word in ("-object", str(program))]
    exported = subprocess.run([f"llvm-cov{VERSION}", "export", "-skip-expansions", f"-instr-profile={merged}",
                               str(programs[0]), *objects], stdout=subprocess.PIPE, check=True).stdout
    return json.loads(exported)["data"][0]


def print_table(files):
    """Prints the share of each folder, and returns what is missed."""
    folders = collections.defaultdict(list)
    for path, reached in files.items():
        folders[path.parts[0]].append(reached)
    rows = [(f"`{folder}`", inside, LEAST_OF_LOGIC if folder in LOGIC else {}) for folder, inside in sorted(folders.items())]
    rows.sort(key=lambda row: not row[2])  # the logic first
    logic = [file for folder in LOGIC for file in folders[folder]]
    rows.insert(len(LOGIC), ("**the logic above**", logic, LEAST_OF_LOGIC))
    rows.append(("**all of `src/`**", list(files.values()), LEAST_OF_ALL))
    print("| folder | lines | share | branches | share |\n| --- | --- | --- | --- | --- |")
    missed = []
    for name, inside, least in rows:
        shares = {kind: Share(inside, kind) for kind in KINDS}
        print(f"| {name} | {shares['lines']} | {shares['branches']} |")
        missed += [f"{name}: {shares[kind].percent:.1f} % of the {kind}, and {percent} % is the least"
                   for kind, percent in least.items() if shares[kind].percent < percent]
    return missed


def print_gaps(files, folder):
    for path, reached in files.items():
        if path.is_relative_to(folder):
            missed = {line: "never runs" for line, count in reached.lines.items() if count == 0}
            for (place, way), count in sorted(reached.branches.items()):
                if count == 0 and place[0][0] not in missed:
                    missed[place[0][0]] = f"column {place[0][1]} is never {str(way).lower()}"
            text = (SOURCES / path).read_text("utf-8").splitlines()
            for line, what in sorted(missed.items()):
                print(f"src/{path}:{line}: {what}: {text[line - 1].strip()}")


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--end-to-end", choices=["silent", "no"], default="silent")
    arguments.add_argument("--no-run", action="store_true")
    arguments.add_argument("--gaps", type=pathlib.Path, metavar="FOLDER", help="of src/")
    options = arguments.parse_args()
    build = options.build.resolve()
    profiles = build / "profiles"
    passed = options.no_run or run_tests(build, profiles, options.end_to_end)
    files = reached_files(llvm_report(build, profiles))
    if options.gaps:
        print_gaps(files, options.gaps)
        return
    missed = print_table(files)
    print(*missed, sep="\n")
    sys.exit(0 if passed and not missed else 1)


if __name__ == "__main__":
    main()
