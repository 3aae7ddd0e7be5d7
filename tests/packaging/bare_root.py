#!/usr/bin/env python3
"""Installs the Debian package into a bare root, runs the tests of the package, and opens scores as a file manager does.

./test does not run this: it needs root rights, debootstrap and a network, and takes some minutes. Run it by hand:

    packaging/make-deb
    sudo tests/packaging/bare_root.py build/package/velorin_2.1.0_amd64.deb

The root is a temporary folder, which is removed at the end. With --keep DIR it is made in DIR, or used again if it
is there. The last line is 'passed', or says what failed.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SUITE = "bookworm"
# What a desktop has: a display, a window manager, a session bus, and what opens files by their type.
DESKTOP = ["xvfb", "xauth", "openbox", "dbus-daemon", "libglib2.0-bin", "shared-mime-info", "desktop-file-utils",
           "x11-utils", "procps"]
USER = "ann"
DEBIAN = pathlib.Path(__file__).resolve().parent.parent.parent / "debian"

# Runs as the user, on a display and a session bus.
SESSION = r"""
set -eu
wait_for() { # what it is, and a command that succeeds when it is there
    tries=0
    until sh -c "$2" >/dev/null 2>&1; do
        tries=$((tries + 1))
        [ $tries -lt 300 ] || { echo "timed out waiting for $1"; exit 1; }
        sleep 0.1
    done
}
copies() { pgrep -c -u "$(id -u)" -x velorin || true; }
shows() { wait_for "the score $1" "xwininfo -root -tree | grep -q '\"$1 - Velorin\"'"; }
openbox --sm-disable >/dev/null 2>&1 &
mkdir -p "$HOME/music"
cp /usr/share/velorin/songs/paper-boat.sng "$HOME/music/100% my first song.sng"
cp /usr/share/velorin/songs/mill-pond-waltz.sng "$HOME/music/waltz.sng"

gio mime application/x-velorin-score | grep -q org.velorin.velorin.desktop || { echo "scores have no program"; exit 1; }
gio info -a standard::content-type "$HOME/music/waltz.sng" | grep -q application/x-velorin-score ||
    { echo "the file type of scores is not known"; exit 1; }

[ "$(copies)" = 0 ] || { echo "the program runs already"; exit 1; }
gio open "$HOME/music/100% my first song.sng"
shows "100% my first song"
gio open "$HOME/music/waltz.sng"
shows "waltz"
gapplication launch org.velorin.velorin
[ "$(copies)" = 1 ] || { echo "$(copies) copies of the program run"; exit 1; }

pkill -TERM -u "$(id -u)" -x velorin
wait_for "the end of the program" "! pgrep -u $(id -u) -x velorin"

eval "$(sed -n 's/^Exec=//p' /usr/share/thumbnailers/velorin-score.thumbnailer |
    sed "s|%s|128|; s|%i|'$HOME/music/waltz.sng'|; s|%o|'$HOME/thumbnail'|")"
[ "$(head -c 4 "$HOME/thumbnail" | tail -c 3)" = PNG ] || { echo "the score has no thumbnail"; exit 1; }
"""


def run(*command, **options):
    words = [str(word) for word in command]
    done = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{' '.join(words[:4])} failed:\n{done.stdout.decode('utf-8', 'replace')[-4000:]}")
    return done.stdout.decode("utf-8", "replace")


class BareRoot:
    """A minimal Debian system in a folder, with /dev and /proc while it is in use."""

    def __init__(self, folder):
        self.folder = folder

    def __enter__(self):
        if not (self.folder / "usr/bin/apt-get").exists():
            run("debootstrap", "--variant=minbase", SUITE, self.folder)
        run("mount", "--rbind", "/dev", self.folder / "dev")
        run("mount", "--make-rslave", self.folder / "dev")
        run("mount", "-t", "proc", "proc", self.folder / "proc")
        shutil.copy("/etc/resolv.conf", self.folder / "etc/resolv.conf")
        return self

    def __exit__(self, *_):
        run("umount", "-l", self.folder / "proc")
        run("umount", "-l", self.folder / "dev")

    def inside(self, *command, user="root"):
        environment = {"PATH": "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin", "LANG": "C.UTF-8",
                       "DEBIAN_FRONTEND": "noninteractive"}
        if user != "root":
            environment.update({"HOME": f"/home/{user}", "XDG_RUNTIME_DIR": f"/run/{user}"})
        return run("chroot", f"--userspec={user}", self.folder, *command, env=environment)

    def install(self, package):
        shutil.copy(package, self.folder / "velorin.deb")
        self.inside("apt-get", "update")
        self.inside("apt-get", "install", "-y", "--no-install-recommends", "--reinstall", "/velorin.deb", *DESKTOP)

    def add_user(self):
        if not (self.folder / "home" / USER).exists():
            self.inside("useradd", "--create-home", USER)
        self.inside("install", "-d", "-m", "700", "-o", USER, f"/run/{USER}")

    def tests_of_package(self):
        """Runs debian/tests, with the packages that its description names."""
        description = (DEBIAN / "tests/control").read_text("utf-8")
        needed = re.search(r"^Depends: @, (.*)$", description, re.M)[1].split(", ")
        self.inside("apt-get", "install", "-y", "--no-install-recommends", *needed)
        for name in re.search(r"^Tests: (.*)$", description, re.M)[1].split(", "):
            shutil.copy(DEBIAN / "tests" / name, self.folder / name)
            self.inside(f"/{name}", user=USER)

    def session(self):
        script = self.folder / "session.sh"
        script.write_text(SESSION)
        # The display first, so that the bus gives it to the programs that it starts.
        self.inside("xvfb-run", "-a", "dbus-run-session", "--", "sh", "/session.sh", user=USER)

    def remove(self):
        """After a removal only what the user has made is left."""
        self.inside("apt-get", "purge", "-y", "velorin")
        left = [str(path) for path in (self.folder / "usr").rglob("*velorin*") if not path.name.endswith(".cache")]
        if left:
            sys.exit(f"the removed package left {left}")


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("package", type=pathlib.Path)
    arguments.add_argument("--keep", type=pathlib.Path, metavar="DIR")
    options = arguments.parse_args()
    if os.geteuid() != 0:
        sys.exit("this needs root rights: it makes a root and changes into it")
    made = None if options.keep else pathlib.Path(tempfile.mkdtemp(prefix="velorin-root-"))
    if made:
        made.chmod(0o755)  # the user inside enters it
    try:
        with BareRoot((options.keep or made).resolve()) as root:
            root.install(options.package)
            root.add_user()
            root.tests_of_package()
            root.session()
            root.remove()
    finally:
        # Never through a mount that is still there.
        if made and not os.path.ismount(made / "dev") and not os.path.ismount(made / "proc"):
            shutil.rmtree(made, ignore_errors=True)
    print("passed")


main()
