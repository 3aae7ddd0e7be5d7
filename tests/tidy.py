"""Runs clang-tidy over everything in src/, with the checks of .clang-tidy, and counts as one test.

    python3 tests/tidy.py BUILD     BUILD is a build with VELORIN_UNITY: ten sources at once read the headers once

A finding fails. The build need not be compiled, only configured.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
# The sources that CMake puts together are included by a file of its own.
CHECKS = "-bugprone-suspicious-include"


def translation_units(build):
    """The files of src/ in the compile commands, and those that include several of them; nothing that is generated."""
    for entry in json.loads((build / "compile_commands.json").read_text("utf-8")):
        path = pathlib.Path(entry["file"])
        if path.is_relative_to(TOP / "src") or (path.is_relative_to(build / "src") and path.parent.name == "Unity"):
            yield path


def tidy(build, path):
    """Returns what clang-tidy finds in one file, an empty string if it finds nothing."""
    command = ["clang-tidy", "-p", str(build), "--quiet", f"--checks={CHECKS}", "--warnings-as-errors=*",
               "--extra-arg=-Wno-unknown-warning-option", str(path)]
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)
    if done.returncode != 0 and not done.stdout:
        return done.stderr
    return done.stdout


def findings(reports):
    """One line for each finding, with its path below the top; a header may be reported by several files."""
    text = "\n".join(reports)
    # A header is included through a link in the build folder: <build>/src/model/include/model/Cell.h.
    text = re.sub(r"^\S+/include/(\S+?:\d+:\d+: )", r"src/\1", text, flags=re.M)
    return sorted(set(re.findall(r"^\S+:\d+:\d+: (?:warning|error): .*$", text.replace(f"{TOP}/", ""), flags=re.M)))


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    paths = sorted(set(translation_units(build)))
    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count()) as pool:
        reports = list(pool.map(lambda path: tidy(build, path), paths))
    failed = not paths or any(reports)
    if failed:
        print("What failed:")
        print(*(findings(reports) or reports or ["no source was found"]), sep="\n")
    print("0 passed, 1 failed" if failed else "1 passed, 0 failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
