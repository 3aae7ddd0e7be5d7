"""Checks the `Rule:` comments of `src`: each names the transcript or the unit test that holds it."""

import re


def comments(lines):
    """Yields (line number, text) for each block of // comments."""
    start, words = 0, []
    for number, line in enumerate([*lines, ""], 1):
        comment = re.match(r"\s*//[/!<]*\s?(.*)", line)
        if comment:
            start = start or number
            words.append(comment[1])
        elif words:
            yield start, " ".join(words)
            start, words = 0, []


def names_after(text):
    """What a comment names after "Held by": paths of transcripts and names of unit tests."""
    held = re.search(r"Held by (.*?)(?:\. |\.?$)", text)
    return re.findall(r"[\w-]+/[\w/-]+|\b[A-Z]\w*[a-z]\w*(?:\.[A-Z]\w+)?", held[1]) if held else []


def exists(name, top, tests):
    if "/" in name:
        return (top / "tests" / "transcripts" / f"{name}.txt").exists()
    return all(part in tests for part in name.split("."))


def names_of_tests(top):
    """The names of all unit tests and of their groups."""
    names = set()
    for path in (top / "tests").rglob("*.cpp"):
        for group, name in re.findall(r"\bTEST(?:_F|_P)?\((\w+),\s*(\w+)\)", path.read_text("utf-8")):
            names |= {group, name}
    return names


def unheld_rules(top):
    tests = None
    for path in sorted((top / "src").rglob("*")):
        if path.suffix not in (".cpp", ".h"):
            continue
        for number, text in comments(path.read_text("utf-8").splitlines()):
            if not re.search(r"\bRule:", text):
                continue
            if tests is None:
                tests = names_of_tests(top)
            place = f"{path.relative_to(top)}:{number}"
            names = names_after(text)
            if not names:
                yield f"{place}: a rule must end with the transcript or test that holds it: Held by folder/name."
            for name in names:
                if not exists(name, top, tests):
                    yield f"{place}: {name} is not a transcript or a unit test"


CHECKS = (unheld_rules,)
