"""Installs the program into an empty folder and uses it there as somebody who cannot write to it; then looks at the
Debian package. Tools that are not installed are passed over: whoever builds packages has them."""

import os
import pathlib
import pwd
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "e2e"))

from desk import Desk, check, run, wait_until  # noqa: E402  (it lies in the folder named above)

SONGS = ["harbour-lights.sng", "market-street.sng", "mill-pond-waltz.sng", "paper-boat.sng", "three-friends.sng"]
SIZES = [16, 22, 24, 32, 48, 64, 96, 128, 256, 512]
FILES = sorted([
    "bin/velorin",
    "bin/velorin-convert",
    "lib/velorin/modules/velorin-picture.so",
    "share/applications/velorin.desktop",
    "share/doc/velorin/changelog.gz",
    "share/doc/velorin/copyright",
    "share/icons/hicolor/scalable/apps/velorin.svg",
    "share/man/man1/velorin-convert.1.gz",
    "share/man/man1/velorin.1.gz",
    "share/metainfo/org.velorin.velorin.metainfo.xml",
    "share/mime/packages/velorin.xml",
    *[f"share/icons/hicolor/{size}x{size}/apps/velorin.png" for size in SIZES],
    *[f"share/velorin/songs/{song}" for song in SONGS],
])
PROGRAMS = {"bin/velorin", "bin/velorin-convert"}

# What the first column of paper-boat.sng holds in the first row, and how it shows: line 0 is pitch index 55.
FIRST_PITCH, RED = 60, (255, 0, 0)


def told(command, **options):
    """What a command says; it must end well."""
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          check=False, **options)
    text = done.stdout.decode("utf-8", "replace")
    check(done.returncode == 0, f"{command[0]} ended with status {done.returncode}\n{text}")
    return text


def ordinary_user(folder):
    """How to start a program as somebody who is not root and gets into a folder; as oneself where that cannot be:
    not every machine lets root become another user, or has a folder for temporary files that is open to all."""
    if os.geteuid() != 0:
        return {}
    nobody = pwd.getpwnam("nobody")
    user = {"user": nobody.pw_uid, "group": nobody.pw_gid, "extra_groups": []}
    try:
        done = subprocess.run(["test", "-x", str(folder)], check=False, **user)
    except OSError:
        return {}
    return user if done.returncode == 0 else {}


def install(build, folder):
    told(["cmake", "--install", build, "--prefix", "/usr"], env={**os.environ, "DESTDIR": str(folder)})
    return folder / "usr"


def files_in(folder):
    """Everything that is not a folder, with what would change if somebody wrote to it."""
    return {str(file.relative_to(folder)): (file.stat().st_size, file.stat().st_mtime_ns)
            for file in folder.rglob("*") if not file.is_dir()}


def check_files(installed):
    found = sorted(files_in(installed))
    check(found == FILES, f"installed is {sorted(set(found) ^ set(FILES))} more or less than expected")
    for name in found:
        mode = (installed / name).stat().st_mode & 0o777
        check(mode == (0o755 if name in PROGRAMS else 0o644), f"{name} has the mode {mode:o}")


def validate(installed, folder):
    share = installed / "share"
    checks = {
        "desktop-file-validate": [share / "applications/velorin.desktop"],
        "appstreamcli": ["validate", "--no-net", share / "metainfo/org.velorin.velorin.metainfo.xml"],
    }
    for tool, arguments in checks.items():
        if shutil.which(tool):
            told([tool, *arguments])
    if shutil.which("man"):
        for page in sorted((share / "man/man1").iterdir()):
            text = told(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page],
                        env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"})
            check("warning" not in text, f"{page.name}: {text[:2000]}")
    if shutil.which("update-mime-database"):
        mime = folder / "mime"
        shutil.copytree(share / "mime", mime)
        told(["update-mime-database", mime])
        globs = (mime / "globs2").read_text("utf-8").splitlines()
        check("50:application/x-velorin-score:*.sng" in globs, f"the kind of file of .sng: {globs}")


class InstalledDesk(Desk):
    """The program is started from where it was installed, by a user with a home of their own."""

    def __init__(self, build, installed):
        super().__init__(build)
        self.installed = installed
        self.user = {}

    def furnish(self):
        super().furnish()
        self.program_folder = self.installed / "bin"
        self.home = self.folder / "user"
        self.home.mkdir(mode=0o700)
        self.environment["HOME"] = str(self.home)
        self.songs = self.home / ".local/share/velorin/Songs"
        self.folder.chmod(0o755)
        self.user = ordinary_user(self.installed)
        if self.user:
            for own in (self.home, self.run_folder):
                os.chown(own, self.user["user"], self.user["group"])

    def start(self, command, **options):
        if command[0].startswith(str(self.installed)):
            options.update(self.user)
        return super().start(command, **options)

    def convert(self, *words):
        told([self.installed / "bin/velorin-convert", *words], env=self.environment, cwd=self.home, **self.user)


def check_converter(desk):
    song = desk.installed / "share/velorin/songs/paper-boat.sng"
    for name, head in {"a.mid": b"MThd", "a.wav": b"RIFF", "a.png": b"\x89PNG"}.items():
        desk.convert(song, "-o", name)
        check((desk.home / name).read_bytes().startswith(head), f"{name} does not begin with {head}")
    manual = subprocess.run(["gzip", "-dc", str(desk.installed / "share/man/man1/velorin-convert.1.gz")],
                            stdout=subprocess.PIPE, check=True).stdout.decode().replace("\\-", "-")
    usage = told([desk.installed / "bin/velorin-convert", "--help"])
    options = set(re.findall(r"--[a-z]+", usage))
    missing = sorted(option for option in options if option not in manual)
    check(len(options) > 8 and not missing, f"the manual page does not tell of {missing}")


def check_program(desk):
    program = desk.launch()
    program.main_window()
    wait_until(desk.songs.exists, "the user's songs")
    check(sorted(os.listdir(desk.songs)) == SONGS, f"the user's songs are {os.listdir(desk.songs)}")
    program.press(2)
    desk.choose_file("Open Score File", "paper-boat.sng")
    program.wait_for_colour(program.cell(0, FIRST_PITCH - 55), RED, "the first note of an installed song")
    program.press(3)
    desk.choose_file("Save music file", "mine", save_filter=1)
    mine = desk.songs / "mine.sng"
    wait_until(lambda: mine.exists() and mine.stat().st_size > 1000, "the score in the user's songs")
    program.end()


def fields_of(package):
    fields = {}
    for line in told(["dpkg-deb", "--field", package]).splitlines():
        if not line.startswith(" "):
            name, _, value = line.partition(": ")
            fields[name] = value
    return fields


def check_package(build, folder):
    told(["cpack", "--config", build / "CPackConfig.cmake", "-B", folder])
    package, = folder.glob("velorin_*.deb")
    listed = [line.split(None, 5) for line in told(["dpkg-deb", "--contents", package]).splitlines()]
    check(all(owner == "root/root" for _, owner, *_ in listed), "not all of the package is root's")
    names = sorted(words[5].removeprefix("./usr/") for words in listed if not words[0].startswith("d"))
    check(names == FILES, f"the package holds {sorted(set(names) ^ set(FILES))} more or less than expected")
    fields = fields_of(package)
    for needed in ("libqt6widgets6", "libqt6svg6", "libfluidsynth3", "librtmidi6", "timgm6mb-soundfont"):
        check(needed in fields["Depends"], f"the package does not depend on {needed}: {fields['Depends']}")
    check("libmp3lame0" in fields["Recommends"], "the package does not recommend the encoder")
    scripts = told(["dpkg-deb", "--info", package])
    check("postinst" not in scripts and "conffiles" not in scripts, "the package leaves something behind")
    if shutil.which("lintian"):
        print(told(["lintian", "--allow-root", "--fail-on", "error", package]), end="")


def test(build):
    os.umask(0o022)  # of whoever installs for all
    with tempfile.TemporaryDirectory(prefix="velorin-package-") as made:
        folder = pathlib.Path(made)
        folder.chmod(0o755)
        installed = install(build.resolve(), folder / "root")
        before = files_in(installed)
        check_files(installed)
        validate(installed, folder)
        with InstalledDesk(build, installed) as desk:
            check_converter(desk)
            check_program(desk)
        check(files_in(installed) == before, "the installed files have changed")
        if shutil.which("dpkg-shlibdeps") and shutil.which("file"):
            check_package(build.resolve(), folder / "package")


run(test)
