"""Checks of the functions that the stream's thread calls, which are marked VELORIN_STREAM_THREAD.

It reads text, so it sees only what a body says itself. What the called functions do is seen by the program of
tests/unit/host/stream, while it runs.
"""

import re

MARK = "VELORIN_STREAM_THREAD"
ENTRY = "StreamThreadScope"
FORBIDDEN = re.compile(
    r"\b(?:new\b|delete\b|make_(?:unique|shared)\b"
    r"|(?:push_back|push_front|emplace|emplace_back|resize|reserve|insert|append|assign)\("
    r"|std::(?:vector|string|to_string|function|thread|mutex|shared_mutex|condition_variable)\b"
    r"|(?:lock_guard|unique_lock|scoped_lock|shared_lock)\b|(?:notify_one|notify_all|wait_for|wait_until)\("
    r"|\w*fstream\b|f?open\(|f?printf\(|fwrite\(|std::c(?:out|err|log)\b"
    r"|(?:sleep|sleep_for|sleep_until|usleep|nanosleep|hold)\(|log\(|logLine\()")


def code(lines):
    """The lines without comments and without what quotation marks hold."""
    return [re.sub(r"//.*", "", re.sub(r'"(?:\\.|[^"\\])*"', '""', line)) for line in lines]


def body(lines, first):
    """The line numbers [from, to) from a function's first line to the brace that closes it; none if it has no body."""
    depth = 0
    for number in range(first, len(lines)):
        depth += lines[number].count("{") - lines[number].count("}")
        if depth == 0 and re.search(r"[;}]\s*$", lines[number]):
            return range(first, number + 1) if "}" in lines[number] else range(0)
    return range(0)


class Class:
    """A class of the host with the functions that it declares."""

    def __init__(self, name, base):
        self.name = name
        self.base = base
        self.declared = {}  # name of a function: [(path, line number, is marked)]

    def marked(self):
        return {name for name, places in self.declared.items() if any(marked for _, _, marked in places)}


def read_classes(path, lines):
    """The classes of a file; relies on clang-format: what a class declares is indented by four more than its head."""
    classes = [Class("", None)]  # what stands outside of classes
    open_classes = [(-4, classes[0])]
    for number, line in enumerate(lines):
        indent = len(line) - len(line.lstrip())
        while line.strip() and not re.fullmatch(r" *\w+:", line) and len(open_classes) > 1 and indent <= open_classes[-1][0]:
            open_classes.pop()
        head = re.match(r" *(?:class|struct) (\w+)(?: final)?(?: : public (?:\w+::)*(\w+).*)? \{$", line)
        if head:
            classes.append(Class(head[1], head[2]))
            open_classes.append((indent, classes[-1]))
            continue
        declaration = re.match(rf" *({MARK} )?(?:\[\[\w+\]\] )?(?:[\w:<>,*&]+ )+[*&]?(\w+)\(", line)
        if declaration and indent == open_classes[-1][0] + 4 and declaration[0].split()[0] != "return":
            open_classes[-1][1].declared.setdefault(declaration[2], []).append((path, number, bool(declaration[1])))
    return classes


def bodies(tree, each, name):
    """The bodies of a marked function: in its class, and in the source beside the header."""
    for path, number, marked in each.declared[name]:
        if not marked:
            continue
        if found := body(code(tree.lines[path]), number):
            yield path, found
        source = path.with_suffix(".cpp")
        prefix = f"{each.name}::" if each.name else ""
        for first, line in enumerate(tree.lines.get(source, []) if source != path else []):
            if re.match(rf"\w.*\b{prefix}{name}\(", line) and (found := body(code(tree.lines[source]), first)):
                yield source, found


def host_classes(tree):
    return [each for path in tree.files if path.parts[0] == "host" for each in read_classes(path, code(tree.lines[path]))]


def marked_bodies(tree):
    """Yields (class, function, path, lines of the body) of every marked function."""
    for each in host_classes(tree):
        for name in sorted(each.marked()):
            for path, lines in bodies(tree, each, name):
                yield each, name, path, lines


def undefined_marks(tree):
    """A mark before what is neither a function with a body nor a pure virtual one checks nothing."""
    for each in host_classes(tree):
        for name in sorted(each.marked()):
            path, number, _ = next(place for place in each.declared[name] if place[2])
            declaration = " ".join(tree.lines[path][number:number + 4]).split(";")[0]
            if not declaration.endswith("= 0") and not any(True for _ in bodies(tree, each, name)):
                yield f"src/{path}:{number + 1}: {name} is marked for the stream's thread and has no body to check"


def unmarked_overrides(tree):
    """What a source, a sink or a clock does in place of a marked function is marked too."""
    classes = host_classes(tree)
    by_name = {each.name: each for each in classes if each.name}
    for each in classes:
        for name in sorted(by_name[each.base].marked() if each.base in by_name else ()):
            for path, number, marked in each.declared.get(name, []):
                if not marked:
                    yield f"src/{path}:{number + 1}: {each.name}::{name} is called by the stream's thread; mark it {MARK}"


def unmarked_calls(tree):
    """A marked function calls only marked functions of its own class."""
    for each, name, path, lines in marked_bodies(tree):
        others = set(each.declared) - each.marked() - {each.name}
        for number, line in zip(lines, code(tree.lines[path][lines.start:lines.stop])):
            for call in re.findall(r"(?<![\w.>:~])(\w+)\(", line):
                if call in others and each.name:
                    yield f"src/{path}:{number + 1}: {each.name}::{name} runs on the stream's thread and calls {call}, which is not marked"


def unmarked_entries(tree):
    """A function that opens the scope of the stream's thread is marked."""
    inside = {(path, number) for _, _, path, lines in marked_bodies(tree) for number in lines}
    for path in tree.files:
        for number, line in enumerate(code(tree.lines[path])):
            if re.match(rf"\s+const {ENTRY} ", line) and (path, number) not in inside:
                yield f"src/{path}:{number + 1}: the stream's thread enters here; mark the function {MARK}"


def forbidden_words(tree):
    """No memory, no lock, no file, no sleep and no log in a marked function."""
    for each, name, path, lines in marked_bodies(tree):
        for number, line in zip(lines, code(tree.lines[path][lines.start:lines.stop])):
            word = FORBIDDEN.search(line)
            if word:
                yield f"src/{path}:{number + 1}: {name} runs on the stream's thread and must not use {word[0].rstrip('(')}"


CHECKS = (undefined_marks, unmarked_overrides, unmarked_calls, unmarked_entries, forbidden_words)
