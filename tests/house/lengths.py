"""Checks of length: no file and no function too long to take in at once."""

import re

FOLDERS = ("src", "tests", "bench", "fuzz", "packaging", "docs", "scripts")
FILE_LINES = 400
FUNCTION_LINES = 60
NO_FUNCTION = "namespace|class|struct|enum|union|extern|return|if|else|for|while|do|switch|case|try"


def files(top, suffixes):
    """The files with these suffixes by their paths below the top, as lists of lines."""
    for folder in FOLDERS:
        for path in sorted((top / folder).rglob("*")):
            if path.suffix in suffixes:
                yield path.relative_to(top), path.read_text("utf-8").splitlines()


def is_table(lines):
    """Lines are a table if most of them begin with a brace or a quotation mark."""
    return sum(line.lstrip()[:1] in ("{", '"') for line in lines) > len(lines) / 2


def long_files(top):
    for path, lines in files(top, (".cpp", ".h", ".py", ".sh")):
        if len(lines) > FILE_LINES and not is_table(lines):
            yield f"{path}: {len(lines)} lines; the limit is {FILE_LINES}"


def long_functions(top):
    """Relies on clang-format: the closing brace is in the column in which the first line begins."""
    for path, lines in files(top, (".cpp", ".h")):
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
                yield f"{path}:{first + 1}: a function of {count} lines; the limit is {FUNCTION_LINES}"


def first_line(lines, last):
    """The first line of what opens a brace: the one after the previous statement, brace or comment."""
    first = last
    while first > 0 and lines[first - 1].strip() and not re.search(r"[;}{]$|^ *(//|#|\w+:$)", lines[first - 1]):
        first -= 1
    return first


def last_line(lines, opening, indent):
    """The line that closes the brace; the opening line itself if it is closed in the middle of a line."""
    for number in range(opening + 1, len(lines)):
        if lines[number].startswith(indent + "}"):
            return number
        if lines[number] and not lines[number].startswith(indent):
            break
    return opening


CHECKS = (long_files, long_functions)
