"""Makes small changes in the logic, one at a time, and counts how many of them the tests notice.

A change turns an operator, a constant or a condition of a source file into its neighbour. The same seed makes the same changes,
and an edit of a line replaces only the changes of that line. All chosen changes are compiled at once into a copy of the tree,
`build/mutations`, and a process makes the one whose number is in VELORIN_MUTATION. So a change is one that can be chosen at run
time: not the label of a case, the size of an array, an argument of a template, or what a constexpr function computes. Headers and
the converter's main.cpp are left out.

The tests are the transcripts, and the unit tests without those of host/, windows/ and program/. They run once without a change to
learn which tests reach which change. Each change then runs with these tests only: those of its own folder first, tests of more than
half a second last. It is noticed if a program fails twice, or takes longer than 15 s plus eight times its usual time. Random and long tests
are a tenth as long as usual. Each result is written down at once; another run with the same seed continues. `--again` runs those
again that were missed.

A change that no test notices is a gap of the tests, or it has no effect at all. Those without effect are listed in
`tests/mutations-without-effect.txt`, each with its reason, after someone has looked at it.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE / "mutation"))

import changes  # noqa: E402
from builder import Builder  # noqa: E402
from runner import Runner  # noqa: E402

ROOT = HERE.parent
TREE = ROOT / "build" / "mutations"
WITHOUT_EFFECT = HERE / "mutations-without-effect.txt"
LOGIC = ["model", "studio", "playback", "editing", "session", "entry", "recording", "tutorial", "history", "importing", "midifile",
         "convert"]
PROCESSES = 2
REST = 1.25  # so many more changes than asked for are tried, since some cannot be switched
NOTICED, MISSED, UNREACHED, NO_SWITCH = "noticed", "missed", "not reached", "cannot be switched"
STAGES = ("not noticed by short unit tests", "not noticed by transcripts", MISSED)


def all_sources():
    for folder in LOGIC:
        for file in sorted((ROOT / "src" / folder).rglob("*.cpp")):
            text = file.read_text("utf-8")
            if file.name != "main.cpp" and 'R"(' not in text:
                yield changes.Source(file.relative_to(ROOT).as_posix(), text)


def known_without_effect():
    """The changes that someone has looked at: the text before ' # ' of each line."""
    lines = WITHOUT_EFFECT.read_text("utf-8").splitlines() if WITHOUT_EFFECT.exists() else []
    return {line.split(" # ")[0] for line in lines if line and not line.startswith("#")}


class Results:
    """What is known of each change, kept in a file of one line each. The last line of a change counts."""

    def __init__(self, file):
        self.file = file
        self.known = {name: result for name, result, _ in map(json.loads, file.read_text().splitlines())} if file.exists() else {}

    def add(self, change, result, by=""):
        self.known[change.name] = result
        with open(self.file, "a", encoding="utf-8") as file:
            file.write(json.dumps([change.name, result, by]) + "\n")
        print(f"{result}: {change.name}", flush=True)


def run_all(chosen, results, runner, again):
    """Runs the tests for every change that has no result yet."""
    harmless = known_without_effect()

    def wanted(change):
        known = results.known.get(change.name)
        return known in (None, *STAGES[:2]) or (again and known != NOTICED and change.name not in harmless)

    left = [change for change in chosen if wanted(change)]
    if not left:
        return
    with concurrent.futures.ThreadPoolExecutor(max_workers=PROCESSES) as pool:
        for stage, passed in enumerate(STAGES):
            failed = (runner.record_units, runner.record_transcripts, lambda _: [])[stage](pool)
            if failed:
                sys.exit("\n".join(["these fail without a change:", *failed]))
            done_before = STAGES[stage:] if stage < 2 else ()
            running = {pool.submit(runner.noticed_by, change, stage): change for change in left
                       if again or results.known.get(change.name) not in done_before}
            for done in concurrent.futures.as_completed(running):
                by = done.result()
                results.add(running[done], passed if by is None else NOTICED if by else UNREACHED, by or "")
            left = [change for change in left if results.known[change.name] in STAGES]


def print_table(chosen, known):
    """Prints the table by folder, and returns the share of the changes that can be noticed and are."""
    harmless = known_without_effect()

    def counts(some):
        noticed = sum(known[change.name] == NOTICED for change in some)
        quiet = sum(known[change.name] != NOTICED and change.name in harmless for change in some)
        return [len(some), noticed, quiet, len(some) - noticed - quiet], noticed / max(1, len(some) - quiet)

    print("| folder | changes | noticed | without effect | missed | of those that can be noticed |\n| --- | --- | --- | --- | --- | --- |")
    for folder in [*LOGIC, "all"]:
        mine = [change for change in chosen if folder in ("all", change.path.split("/")[1])]
        row, share = counts(mine)
        if mine:
            print("|", " | ".join([f"`{folder}/`" if folder != "all" else folder, *map(str, row), f"{100 * share:.1f} %"]), "|")
    for change in chosen:
        if known[change.name] != NOTICED and change.name not in harmless:
            print(f"{known[change.name]}: {change.name} (line {change.line})")
    return counts(chosen)[1]


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("--count", type=int, default=500)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--again", action="store_true", help="run the tests again for what was missed")
    options = arguments.parse_args()
    os.nice(5)

    sources = list(all_sources())
    possible = [change for source in sources for change in changes.changes_of(source)]
    print(f"{len(possible)} changes are possible", flush=True)
    TREE.mkdir(parents=True, exist_ok=True)
    results = Results(TREE.parent / f"mutations-{options.seed}.jsonl")
    possible.sort(key=lambda change: change.rank(options.seed))
    candidates = [change for change in possible[:int(options.count * REST)] if results.known.get(change.name) != NO_SWITCH]
    builder = Builder(ROOT, TREE, LOGIC, sources)
    chosen = builder.prepare(candidates, options.count, lambda change: results.add(change, NO_SWITCH))
    run_all(chosen, results, Runner(TREE, builder.build), options.again)
    return 0 if print_table(chosen, results.known) >= 0.95 else 1


if __name__ == "__main__":
    sys.exit(main())
