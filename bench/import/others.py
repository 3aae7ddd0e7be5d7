"""Two programs of Debian that read a MIDI file into notation and write it back. They run from the cache."""

import os
import re
import subprocess

import collection

SECONDS = 60  # for one file

# A notation program depends on sounds that would become the machine's default if they were installed. It needs none
# to convert.
NEVER = re.compile(r"soundfont")


def missing_packages(package):
    """The package and what it depends on that is not installed, as apt would install them."""
    told = subprocess.run(["apt-get", "-s", "--no-install-recommends", "install", package], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True, check=False).stdout
    names = re.findall(r"^Inst (\S+)", told, re.M) or [package]
    return [name for name in names if not NEVER.search(name)]


class OtherPrograms:
    def __init__(self, cache):
        self.root = cache / "programs"
        self.written = cache / "written"
        self.home = cache / "home"
        self.home.mkdir(parents=True, exist_ok=True)
        self.home.chmod(0o700)
        if not (self.root / "complete").exists():
            for package in collection.listed("program"):
                needed = missing_packages(package)
                collection.download(needed, cache / "debs")
                for name in needed:
                    for deb in (cache / "debs").glob(f"{name}_*.deb"):
                        self.root.mkdir(parents=True, exist_ok=True)
                        subprocess.run(["dpkg-deb", "-x", deb, self.root], check=True)
            (self.root / "complete").touch()
        libraries = self.root / "usr/lib/x86_64-linux-gnu"
        self.environment = dict(os.environ, LD_LIBRARY_PATH=str(libraries), QT_QPA_PLATFORM="offscreen",
                                QT_PLUGIN_PATH=str(libraries / "qt5/plugins"), HOME=str(self.home),
                                XDG_RUNTIME_DIR=str(self.home))

    def run(self, program, *arguments):
        subprocess.run([self.root / "usr/bin" / program, *arguments], env=self.environment, timeout=SECONDS,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)

    def abcmidi(self, source, target):
        notation = target.with_suffix(".abc")
        self.run("midi2abc", "-f", source, "-o", notation)
        self.run("abc2midi", notation, "-o", target)
        notation.unlink(missing_ok=True)

    def musescore3(self, source, target):
        self.run("mscore3", "-o", target, source)

    def written_back(self, name, source):
        """The file that a program writes, or nothing if it does not. The cache keeps it for the next run."""
        target = self.written / name / f"{source.parent.name}-{source.name}"
        if not target.exists():
            target.parent.mkdir(parents=True, exist_ok=True)
            try:
                getattr(self, name)(source, target)
            except subprocess.TimeoutExpired:
                target.unlink(missing_ok=True)
            target.touch()
        return target if target.stat().st_size > 0 else None
