"""Checks the source tree: who may include whom, the length of files and functions, the tests of rules, and what the
stream's thread may do.

    python3 tests/house_test.py     prints what is wrong; ends with status 0 if nothing is
"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from house import arrows, lengths, rules, stream_thread  # noqa: E402
from house.libraries import Tree  # noqa: E402

TOP = pathlib.Path(__file__).resolve().parent.parent


def findings(top):
    tree = Tree(top / "src")
    for check in (*arrows.CHECKS, *stream_thread.CHECKS):
        yield from check(tree)
    for check in (*lengths.CHECKS, *rules.CHECKS):
        yield from check(top)


def main():
    found = list(findings(TOP))
    for line in found:
        print(line)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
