#!/usr/bin/env python3
"""Builds the source and the Debian package twice and compares the bytes.

./test does not run this: it compiles everything twice, without a compiler cache. Run it by hand as root:

    sudo tests/packaging/reproducible.py

The two builds differ in the folder and the length of its name, the user, the umask, the locale, the time zone, the
number of jobs, the time (the second build is 400 days later), and the times and the order of the source files. It
prints the digests of both builds, and needs `faketime`. The last line is 'passed', or says what differs.
"""

import argparse
import hashlib
import os
import pathlib
import pwd
import shutil
import stat
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
FILES = ("*.deb", "*.tar.xz", "*.dsc")


def told(*command, **options):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{command[0]} failed")
    return done.stdout.decode()


class Build:
    """One build, with all that may differ between two machines."""

    def __init__(self, folder, user, umask, locale, zone, jobs, later, backwards):
        self.folder = pathlib.Path(folder)
        self.user = pwd.getpwnam(user)
        self.umask, self.locale, self.zone, self.jobs = umask, locale, zone, jobs
        self.later, self.backwards = later, backwards

    def place(self, names, version):
        """Copies the source: in this or that order, with the permissions and the times of this user's checkout."""
        self.folder.mkdir(parents=True)
        self.source = self.folder / f"velorin-{version}"
        self.made = self.folder / "made"
        before = os.umask(self.umask)
        try:
            for number, name in enumerate(reversed(names) if self.backwards else names):
                copy = self.source / name
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(TOP / name, copy)
                if (TOP / name).stat().st_mode & stat.S_IXUSR:
                    copy.chmod(0o777 & ~self.umask)
                if self.backwards:
                    os.utime(copy, (1.6e9 + number, 1.6e9 + number))
        finally:
            os.umask(before)
        told("chown", "-R", self.user.pw_uid, self.folder)

    def run(self):
        words = [self.source / "packaging/make-deb", self.made]
        if self.later:
            words = ["faketime", "-f", "+400d", *words]
        environment = {
            "PATH": os.environ["PATH"], "HOME": str(self.folder / "home"), "USER": self.user.pw_name,
            "LOGNAME": self.user.pw_name, "LC_ALL": self.locale, "TZ": self.zone, "CCACHE_DISABLE": "1",
            "NO_FAKE_STAT": "1",  # only the clock is another one, not the times of files
            "DEB_BUILD_OPTIONS": f"parallel={self.jobs}"}
        log = self.folder.with_name(self.folder.name + ".log")
        with open(log, "wb") as file:
            done = subprocess.run(words, cwd=self.source, env=environment, stdout=file, stderr=subprocess.STDOUT,
                                  user=self.user.pw_uid, group=self.user.pw_gid, extra_groups=[],
                                  umask=self.umask, check=False)
        if done.returncode != 0:
            sys.exit(f"the build of {self.user.pw_name} failed:\n{log.read_text('utf-8', 'replace')[-4000:]}")

    def digests(self):
        return {file.name: hashlib.sha256(file.read_bytes()).hexdigest()
                for pattern in FILES for file in sorted(self.made.glob(pattern))}


def source_files():
    listed = told("git", "-C", TOP, "ls-files", "-z", "--cached", "--others", "--exclude-standard")
    return sorted(name for name in listed.split("\0") if name and (TOP / name).is_file())


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("--keep", type=pathlib.Path, metavar="DIR", help="leave both builds in DIR")
    options = arguments.parse_args()
    if os.geteuid() != 0:
        sys.exit("this needs root rights: it builds as two users")
    if not shutil.which("faketime"):
        sys.exit("this needs faketime, which sets the clock of the second build: apt-get install faketime")
    version = told("dpkg-parsechangelog", "-l", TOP / "debian/changelog", "-S", "Version").strip()
    names = source_files()

    top = (options.keep or pathlib.Path(tempfile.mkdtemp(prefix="velorin-twice-"))).resolve()
    top.mkdir(parents=True, exist_ok=True)
    top.chmod(0o755)
    try:
        builds = [
            Build(top / "a", "root", 0o022, "C.UTF-8", "UTC", 2, later=False, backwards=False),
            Build(top / "a-folder-with-a-longer-name/b", "nobody", 0o077, "C", "Pacific/Auckland", 3, later=True,
                  backwards=True)]
        for build in builds:
            build.place(names, version)
        for build in builds:
            build.run()
        one, other = (build.digests() for build in builds)
        for name in sorted({*one, *other}):
            print(f"{one.get(name)}  {other.get(name)}  {name}")
        differ = [name for name in {*one, *other} if one.get(name) != other.get(name)]
    finally:
        if not options.keep:
            shutil.rmtree(top, ignore_errors=True)
    if differ or len(one) < 3:
        sys.exit(f"the builds differ in {', '.join(sorted(differ)) or 'nothing, and lack files'}")
    print("passed")


main()
