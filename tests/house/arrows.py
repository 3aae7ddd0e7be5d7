"""Checks of who may include whom in `src`: the libraries that CMake links, no circles, no Qt and no host in the logic."""

import re

LOGIC = ("platform", "model", "studio", "playback", "editing", "entry", "session", "recording", "tutorial", "midifile", "importing")
# Qt's own dialogs have no other way to their parts.
FIND_CHILD_ALLOWED = "host"


def orphans(tree):
    """Files that no library compiles, so that no check sees them."""
    for path in tree.files:
        if tree.owner.get(path) is None:
            yield f"src/{path}: belongs to no library of a CMake file"


def unlinked_includes(tree):
    for path in tree.files:
        library = tree.owner.get(path)
        if library is None:
            continue
        allowed = {library.name, *tree.linked(library)}
        for include in tree.includes[path]:
            owners = [tree.owner[found].name for found in tree.included_files(include) if tree.owner.get(found)]
            if owners and not any(name in allowed for name in owners):
                yield f"{include.place()}: {library.name} includes {include.text} of {owners[0]}, which it does not link"


def edges(tree):
    """For each library: the other libraries that it includes or links, each with a place that does so."""
    found = {name: {} for name in tree.libraries}
    for library in tree.libraries.values():
        for name in library.links:
            if name in tree.libraries:
                found[library.name].setdefault(name, f"src/{library.folder / 'CMakeLists.txt'}")
    for path in tree.files:
        library = tree.owner.get(path)
        for include in tree.includes[path] if library else []:
            owners = [tree.owner.get(other) for other in tree.included_files(include)]
            if owners and owners[0] is not None and library not in owners:
                found[library.name][owners[0].name] = include.place()
    return found


def circles(tree):
    graph = edges(tree)

    def reached_from(name):
        seen = set()
        waiting = [name]
        while waiting:
            for other in graph[waiting.pop()]:
                if other not in seen:
                    seen.add(other)
                    waiting.append(other)
        return seen

    for name, others in sorted(graph.items()):
        for other, place in sorted(others.items()):
            if name in reached_from(other):
                yield f"{place}: {name} uses {other}, which leads back to {name}"


def logic_libraries(tree):
    return [library for library in tree.libraries.values() if set(library.folder.parts[:1]) & set(LOGIC)]


def impure_logic(tree):
    """The logic includes the standard library and itself: no Qt, no operating system, no library of a host."""
    for library in logic_libraries(tree):
        if tree.has_qt(library):
            yield f"src/{library.folder / 'CMakeLists.txt'}: {library.name} is logic and must not link Qt"
        for name in sorted(tree.linked(library)):
            if name in tree.libraries and tree.libraries[name].folder.parts[:1] == ("host",):
                yield f"src/{library.folder / 'CMakeLists.txt'}: {library.name} is logic and must not link {name} of the host"
    for path in tree.files:
        if tree.owner.get(path) in logic_libraries(tree):
            for include in tree.includes[path]:
                if not include.quoted and not re.fullmatch(r"[a-z0-9_]+", include.text):
                    yield f"{include.place()}: logic includes only the standard library, not <{include.text}>"


def qt_without_qt(tree):
    """A library that does not link Qt includes none of its headers: they would be found by chance."""
    for path in tree.files:
        library = tree.owner.get(path)
        if library is not None and not tree.has_qt(library):
            for include in tree.includes[path]:
                if not include.quoted and re.match(r"Q[A-Z]|Qt\w*/", include.text):
                    yield f"{include.place()}: {library.name} includes <{include.text}> and does not link Qt"


def found_children(tree):
    """Windows and controls are reached by type, never by a name in a string."""
    for path in tree.files:
        if path.parts[0] == FIND_CHILD_ALLOWED:
            continue
        for number, line in enumerate(tree.lines[path], 1):
            if re.search(r"\bfindChild\b", line):
                yield f"src/{path}:{number}: findChild reaches a control by its name; hold a typed reference"


CHECKS = (orphans, unlinked_includes, circles, impure_logic, qt_without_qt, found_children)
