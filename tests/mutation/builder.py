"""Makes and builds the copy of the tree in which the chosen changes are behind switches."""

import os
import pathlib
import re
import subprocess
import sys

import changes

MENTIONED = re.compile(r"(src/[\w/]+\.cpp):(\d+):(?:\d+:)? *(fatal error|error|note)?")
OTHERS = ("host", "windows", "program")  # folders whose unit tests are not run


def copy_if_other(path, content, mode):
    if path.exists() and path.read_bytes() == content:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)
    path.chmod(mode)


class Builder:
    """A copy of `root` in `tree`. Only what differs is written, so only that is compiled again."""

    def __init__(self, root, tree, folders, sources):
        self.root, self.tree, self.build = root, tree, tree / "build" / "release"
        rooms = [file for folder in folders for file in sorted((root / "src" / folder).rglob("CMakeLists.txt"))]
        self.folders = [file.parent.relative_to(root / "src").as_posix() for file in rooms]
        self.libraries = [name for file in rooms for name in re.findall(r"^velorin_library\((\w+)", file.read_text("utf-8"), re.M)]
        self.sources = {source.path: source for source in sources}

    def copy(self, chosen):
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=self.root,
                                check=True, stdout=subprocess.PIPE).stdout.decode().split("\0")
        names = {name for name in listed if name and (self.root / name).is_file()}
        by_path = {}
        for change in chosen:
            by_path.setdefault(change.path, []).append(change)
        for name in sorted(names):
            file = self.root / name
            content = changes.switched(self.sources[name], by_path[name]).encode() if name in by_path else file.read_bytes()
            copy_if_other(self.tree / name, content, file.stat().st_mode)
        for file in self.tree.rglob("*"):
            name = file.relative_to(self.tree)
            if name.parts[0] not in ("build", ".git") and file.is_file() and name.as_posix() not in names:
                file.unlink()

    def compile(self, targets, jobs=2):
        """Whether the targets are built, and what was printed."""
        environment = {"CCACHE_BASEDIR": str(self.root), "CCACHE_NOHASHDIR": "1", **os.environ}
        ninja = ["ninja", "-C", str(self.build), "-k", "0", f"-j{jobs}", *targets]
        done = subprocess.run(ninja, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        return done.returncode == 0, done.stdout.decode("utf-8", "replace")

    def configure(self):
        options = ["-DVELORIN_WERROR=OFF", "-DVELORIN_UNITY=OFF", "-DVELORIN_UNITY_TESTS=ON",
                   f"-DVELORIN_MUTATIONS={';'.join(self.folders)}"]
        subprocess.run(["cmake", "--preset", "release", *options], cwd=self.tree, check=True, stdout=subprocess.DEVNULL)

    def targets(self):
        """The programs of the unit tests that are run, and the one that runs the transcripts."""
        rooms = [file for file in sorted((self.tree / "tests" / "unit").rglob("CMakeLists.txt"))
                 if file.relative_to(self.tree / "tests" / "unit").parts[0] not in OTHERS]
        units = [name for file in rooms for name in re.findall(r"^velorin_unit_test\((\w+)", file.read_text("utf-8"), re.M)]
        return [f"unit_{name}" for name in units] + ["velorin-transcript"]

    def dropped(self, output, chosen):
        """The changes that are to blame for these errors."""
        errors, notes = {}, {}
        for path, line, kind in MENTIONED.findall(output):
            (errors if "error" in kind else notes).setdefault(path, set()).add(int(line))

        def is_in(change, mentioned):
            return any(line in change.lines for line in mentioned.get(change.path, ()))

        return ([change for change in chosen if is_in(change, errors) or (change.constant is not None and is_in(change, notes))]
                or [change for change in chosen if is_in(change, notes)] or [change for change in chosen if change.path in errors])

    def prepare(self, candidates, count, note_dropped):
        """Compiles the first `count` candidates that can be switched, and returns them."""
        chosen = list({change.number: change for change in reversed(candidates)}.values())[::-1]
        self.copy(chosen)
        self.configure()
        for targets in (self.libraries, self.targets()):
            while True:
                done, output = self.compile(targets)
                if done:
                    break
                bad = self.dropped(output, chosen)
                if not bad:
                    sys.exit(f"the tree does not build\n{output[-4000:]}")
                print(f"{len(bad)} changes cannot be switched", flush=True)
                for change in bad:
                    note_dropped(change)
                chosen = [change for change in chosen if change not in bad]
                self.copy(chosen)
        return chosen[:count]
