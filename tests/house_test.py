"""How the sources are kept: no folders that include each other, no file and no function too long to take in at once.

    python3 tests/house_test.py     prints what is not so; ends with status 0 if there is nothing
"""

import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("src", "tests", "bench", "fuzz")
FILE_LINES = 400
FUNCTION_LINES = 60
NO_FUNCTION = "namespace|class|struct|enum|union|extern|return|if|else|for|while|do|switch|case|try"


def sources():
    """The files of C++ by their paths below the top, as lists of lines."""
    for folder in FOLDERS:
        for path in sorted((TOP / folder).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                yield path.relative_to(TOP), path.read_text("utf-8").splitlines()


def scripts():
    for folder in FOLDERS:
        for path in sorted((TOP / folder).rglob("*.py")):
            yield path.relative_to(TOP), path.read_text("utf-8").splitlines()


def is_table(lines):
    """Lines are a table if most of them begin with a brace or a quotation mark."""
    return sum(line.lstrip()[:1] in ("{", '"') for line in lines) > len(lines) / 2


def long_files():
    for path, lines in [*sources(), *scripts()]:
        if len(lines) > FILE_LINES and not is_table(lines):
            yield f"{path}: {len(lines)} lines, {FILE_LINES} are the most"


def long_functions():
    """As clang-format sets them: the brace at the end stands in the column in which the first line begins."""
    for path, lines in sources():
        for last, line in enumerate(lines):
            if not line.endswith("{"):
                continue
            first = first_line(lines, last)
            indent, head = re.match(r"( *)(.*)", lines[first]).groups()
            opening = " ".join(lines[first:last + 1])
            before = opening.split("(")[0]
            if re.match(r"[}\])]|(" + NO_FUNCTION + r")\b", head) or before == opening or " = " in before:
                continue
            end = last_line(lines, last, indent)
            count = end - first + 1
            if count > FUNCTION_LINES and not is_table(lines[last + 1:end]):
                yield f"{path}:{first + 1}: a function of {count} lines, {FUNCTION_LINES} are the most"


def first_line(lines, last):
    """Where what opens a brace begins: behind the statement, the brace or the comment before it."""
    first = last
    while first > 0 and lines[first - 1].strip() and not re.search(r"[;}{]$|^ *(//|#|\w+:$)", lines[first - 1]):
        first -= 1
    return first


def last_line(lines, opening, indent):
    """Where the brace is closed; the opening line itself for one that is closed in the middle of a line."""
    for number in range(opening + 1, len(lines)):
        if lines[number].startswith(indent + "}"):
            return number
        if lines[number] and not lines[number].startswith(indent):
            break
    return opening


def included_folders():
    """For each folder of `src`: the other folders that it includes, each with a line that does so."""
    folders = {}
    for path, lines in sources():
        if path.parts[0] != "src" or len(path.parts) < 3:
            continue
        includes = folders.setdefault(path.parts[1], {})
        for number, line in enumerate(lines, 1):
            other = re.match(r'#include "(\w+)/', line)
            if other and other[1] != path.parts[1]:
                includes.setdefault(other[1], f"{path}:{number}")
    return folders


def circles():
    folders = included_folders()

    def reached_from(folder, seen):
        for other in folders.get(folder, {}):
            if other not in seen:
                seen.add(other)
                reached_from(other, seen)
        return seen

    for folder, includes in sorted(folders.items()):
        for other, place in sorted(includes.items()):
            if folder in reached_from(other, set()):
                yield f"{place}: {folder} includes {other}, which leads back to {folder}"


def main():
    found = [*circles(), *long_files(), *long_functions()]
    for line in found:
        print(line)
    sys.exit(1 if found else 0)


main()
