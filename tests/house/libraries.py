"""Reads the CMake files of `src` and the includes of its sources: which library a file belongs to, and what it includes."""

import dataclasses
import pathlib
import re

HEADER_SUFFIX = ".h"
KEYWORDS = ("SOURCES", "LINK", "PUBLIC", "PRIVATE", "INTERFACE", "STATIC", "SHARED", "MODULE", "OBJECT", "ALIAS", "QT", "GUI")


@dataclasses.dataclass
class Library:
    """A target of CMake: a static library, a module or a program."""

    name: str
    folder: pathlib.PurePath  # of its CMake file, below `src`
    qt: bool = False
    sources: list = dataclasses.field(default_factory=list)  # paths below `src`, generated ones left out
    links: list = dataclasses.field(default_factory=list)


@dataclasses.dataclass
class Include:
    """One #include line of a file below `src`."""

    path: pathlib.PurePath
    line: int
    text: str
    quoted: bool

    def place(self):
        return f"src/{self.path}:{self.line}"


def commands(text):
    """Yields (command, arguments) for each call in a CMake file."""
    text = re.sub(r'("(?:\\.|[^"\\])*")|#[^\n]*', lambda match: match[1] or "", text)
    for call in re.finditer(r'(\w+)\s*\(((?:"(?:\\.|[^"\\])*"|[^()"])*)\)', text):
        yield call[1].lower(), [quoted or bare for quoted, bare in re.findall(r'"((?:\\.|[^"\\])*)"|([^\s"]+)', call[2])]


def read_libraries(src):
    """Returns the libraries of the tree by name."""
    libraries = {}
    for file in sorted(src.rglob("CMakeLists.txt")):
        folder = file.parent.relative_to(src)
        for command, arguments in commands(file.read_text("utf-8")):
            if command in ("velorin_library", "velorin_program", "velorin_module", "add_library", "add_executable"):
                library = libraries.setdefault(arguments[0], Library(arguments[0], folder))
                add_arguments(library, src, arguments[1:])
            elif command == "target_link_libraries" and arguments[0] in libraries:
                library = libraries[arguments[0]]
                library.links += [word for word in arguments[1:] if word not in KEYWORDS]
    return libraries


def add_arguments(library, src, words):
    """Sorts the words after a target's name into sources and links."""
    links = False
    for word in words:
        if word in KEYWORDS:
            links = word == "LINK" or (links and word != "SOURCES")
            library.qt = library.qt or word in ("QT", "GUI")
        elif links:
            library.links.append(word)
        elif word.endswith((".cpp", HEADER_SUFFIX)) and (src / library.folder / word).exists():
            library.sources.append(library.folder / word)


class Tree:
    """The files of a `src` folder with their libraries and includes."""

    def __init__(self, src):
        self.libraries = read_libraries(src)
        self.files = sorted(path.relative_to(src) for path in src.rglob("*") if path.suffix in (".cpp", ".h"))
        self.lines = {path: (src / path).read_text("utf-8").splitlines() for path in self.files}
        self.includes = {path: list(self.read_includes(path)) for path in self.files}
        self.by_name = {}
        for path in self.files:
            self.by_name.setdefault(path.name, []).append(path)
        self.owner = {}
        for library in self.libraries.values():
            for source in library.sources:
                self.owner.setdefault(source, library)
        for path in self.files:
            self.own_header(path)

    def read_includes(self, path):
        for number, line in enumerate(self.lines[path], 1):
            include = re.match(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', line)
            if include:
                yield Include(path, number, include[1] or include[2], include[1] is not None)

    def included_files(self, include):
        """The files of the tree that a quoted include can mean: more than one if folders share their last name."""
        if not include.quoted:
            return []
        wanted = pathlib.PurePath(include.text)
        beside = include.path.parent / wanted
        if beside in self.lines:
            return [beside]
        return [path for path in self.by_name.get(wanted.name, []) if path.parts[-len(wanted.parts):] == wanted.parts]

    def own_header(self, header):
        """Sets the owner of a header, unless a CMake file lists it: the library of the source with its stem, else the
        lowest library of its folder that links what the header includes."""
        if header in self.owner or header.suffix != HEADER_SUFFIX:
            return
        self.owner[header] = self.owner.get(header.with_suffix(".cpp"))
        if self.owner[header] is not None:
            return
        included = [found for include in self.includes[header] for found in self.included_files(include)[:1]]
        for other in included:
            self.own_header(other)
        needed = {self.owner[other].name for other in included if self.owner.get(other) is not None}
        here = self.libraries_beside(header)
        able = [library for library in here if needed <= {library.name, *self.linked(library)}]
        self.owner[header] = self.lowest(able or here)

    def libraries_beside(self, header):
        """The libraries with sources in the folder of a header, else those of the nearest CMake file above it."""
        here = [library for library in self.libraries.values() if any(path.parent == header.parent for path in library.sources)]
        folder = header.parent
        while not here:
            here = [library for library in self.libraries.values() if library.folder == folder]
            if folder == folder.parent:
                break
            folder = folder.parent
        return here

    def lowest(self, libraries):
        """The first of these libraries that links none of the others; none if there are none."""
        for library in libraries:
            if not any(other.name in self.linked(library) for other in libraries if other is not library):
                return library
        return libraries[0] if libraries else None

    def linked(self, library):
        """The names of all that a library links, directly or through what it links."""
        seen = set()
        waiting = list(library.links)
        while waiting:
            name = waiting.pop()
            if name not in seen:
                seen.add(name)
                waiting += self.libraries[name].links if name in self.libraries else []
        return seen

    def has_qt(self, library):
        names = {library.name, *self.linked(library)}
        return any(name.startswith("Qt6::") or (name in self.libraries and self.libraries[name].qt) for name in names)
