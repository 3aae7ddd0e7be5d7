"""The MIDI files of Debian packages: downloads the packages, unpacks them into a cache folder, and finds the files."""

import dataclasses
import gzip
import hashlib
import os
import pathlib
import shutil
import struct
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ENDINGS = (".mid", ".midi", ".kar", ".rmi", ".mid.gz", ".midi.gz")


def default_cache():
    return pathlib.Path(os.environ.get("XDG_CACHE_HOME", pathlib.Path.home() / ".cache")) / "velorin-bench"


def listed(kind):
    """The packages of a kind in packages.txt: "install", "program" or "data"."""
    lines = (HERE / "packages.txt").read_text().splitlines()
    words = [line.split("#")[0].split() for line in lines]
    return [word[1] for word in words if len(word) == 2 and word[0] == kind]


@dataclasses.dataclass
class MidiFile:
    package: str
    name: str           # its path in the package without the folders above, or its lump in a game's archive
    path: pathlib.Path  # a copy in the cache


def download(packages, folder):
    """Fetches .deb files into a folder; a package that the archive does not have is reported and left out."""
    folder.mkdir(parents=True, exist_ok=True)
    for package in packages:
        if any(folder.glob(f"{package}_*.deb")):
            continue
        done = subprocess.run(["apt-get", "-q", "download", package], cwd=folder, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, text=True)
        if done.returncode != 0:
            print(f"{package} is left out: {done.stderr.strip().splitlines()[-1]}", file=sys.stderr)


def unpack(package, debs, root):
    """Unpacks one package into a folder, once."""
    found = sorted(debs.glob(f"{package}_*.deb"))
    if not found:
        return False
    if not root.exists():
        part = root.with_name(root.name + ".part")
        shutil.rmtree(part, ignore_errors=True)
        part.mkdir(parents=True)
        subprocess.run(["dpkg-deb", "-x", found[-1], part], check=True)
        part.rename(root)
    return True


def lumps(archive):
    """Name and bytes of the MIDI files in a game's archive (WAD: a directory of lumps with names of eight bytes)."""
    data = archive.read_bytes()
    if data[:4] not in (b"IWAD", b"PWAD"):
        return
    count, start = struct.unpack_from("<ii", data, 4)
    for entry in range(count):
        at, size, name = struct.unpack_from("<ii8s", data, start + 16 * entry)
        if data[at:at + 4] == b"MThd":
            yield name.rstrip(b"\0").decode("ascii", "replace"), data[at:at + size]


def midi_files_in(root):
    """Name and bytes of every MIDI file below a folder."""
    for path in sorted(root.rglob("*")):
        if path.is_symlink() or not path.is_file():
            continue
        if path.suffix.lower() == ".wad":
            for name, data in lumps(path):
                yield f"{path.name}:{name}", data
        elif path.name.lower().endswith(ENDINGS):
            data = path.read_bytes()
            if path.suffix == ".gz":
                data = gzip.decompress(data)
            yield (path.name if path.stem != "notes" else f"{path.parent.name}/{path.name}"), data


def has_header(data):
    return data[:4] == b"MThd" or (data[:4] == b"RIFF" and data[8:12] == b"RMID")


def collect(cache):
    """All different MIDI files of the listed packages. A file that is in two packages counts for the first one."""
    packages = listed("data")
    download(packages, cache / "debs")
    files, seen = [], set()
    for package in packages:
        root = cache / "unpacked" / package
        if not unpack(package, cache / "debs", root):
            continue
        for name, data in midi_files_in(root):
            digest = hashlib.sha256(data).hexdigest()
            if digest in seen or not has_header(data):
                continue
            seen.add(digest)
            copy = cache / "midi" / package / (digest[:8] + ".mid")
            copy.parent.mkdir(parents=True, exist_ok=True)
            if not copy.exists():
                copy.write_bytes(data)
            files.append(MidiFile(package, name, copy))
    return files
