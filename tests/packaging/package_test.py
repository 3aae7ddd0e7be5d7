"""Installs the program into an empty folder and runs it as a user who cannot write to it. Then checks the
Debian package. Checks whose tools are not installed are skipped."""

import os
import pathlib
import pwd
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
TOP = HERE.parent.parent
sys.path.insert(0, str(HERE.parent / "e2e"))

from desk import Desk, check, run, wait_until  # noqa: E402  (it lies in the folder named above)

SONGS = ["harbour-lights.sng", "market-street.sng", "mill-pond-waltz.sng", "paper-boat.sng", "three-friends.sng"]
SIZES = [16, 22, 24, 32, 48, 64, 96, 128, 256, 512]
SCORE_SIZES = [16, 24, 32, 48, 64, 256]
FILES = sorted([
    "bin/velorin",
    "bin/velorin-convert",
    "bin/velorin-converter",
    "lib/velorin/modules/velorin-card.so",
    "lib/velorin/modules/velorin-picture.so",
    "lib/velorin/modules/velorin-synth.so",
    "share/applications/org.velorin.velorin.desktop",
    "share/applications/velorin-converter.desktop",
    "share/dbus-1/services/org.velorin.velorin.service",
    "share/icons/hicolor/scalable/apps/velorin.svg",
    "share/icons/hicolor/scalable/apps/velorin-converter.svg",
    "share/icons/hicolor/scalable/mimetypes/application-x-velorin-score.svg",
    "share/man/man1/velorin-convert.1.gz",
    "share/man/man1/velorin-converter.1.gz",
    "share/man/man1/velorin.1.gz",
    "share/metainfo/org.velorin.converter.metainfo.xml",
    "share/metainfo/org.velorin.velorin.metainfo.xml",
    "share/mime/packages/velorin.xml",
    *[f"share/icons/hicolor/{size}x{size}/apps/velorin.png" for size in SIZES],
    *[f"share/icons/hicolor/{size}x{size}/apps/velorin-converter.png" for size in SCORE_SIZES],
    *[f"share/icons/hicolor/{size}x{size}/mimetypes/application-x-velorin-score.png" for size in SCORE_SIZES],
    "share/thumbnailers/velorin-score.thumbnailer",
    *[f"share/velorin/songs/{song}" for song in SONGS],
])
DOCUMENTS = ["share/doc/velorin/changelog.gz", "share/doc/velorin/copyright"]  # only in the package
PROGRAMS = {"bin/velorin", "bin/velorin-convert", "bin/velorin-converter"}

# The first cell of paper-boat.sng and its place on the screen: line 0 is pitch index 55.
FIRST_PITCH, RED = 60, (255, 0, 0)


def told(command, **options):
    """The output of a command, which must end with status 0."""
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          check=False, **options)
    text = done.stdout.decode("utf-8", "replace")
    check(done.returncode == 0, f"{command[0]} ended with status {done.returncode}\n{text}")
    return text


def ordinary_user(folder):
    """A prefix that runs a command as a user without root rights who can read a folder. It is empty if that is
    impossible: root may not be able to change its user, and temporary folders may be private."""
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
    """All files, with the properties that change if somebody writes to them."""
    return {str(file.relative_to(folder)): (file.stat().st_size, file.stat().st_mtime_ns)
            for file in folder.rglob("*") if not file.is_dir()}


def check_files(installed):
    found = sorted(files_in(installed))
    check(found == FILES, f"the installed files differ from the list by {sorted(set(found) ^ set(FILES))}")
    for name in found:
        mode = (installed / name).stat().st_mode & 0o777
        check(mode == (0o755 if name in PROGRAMS else 0o644), f"{name} has the mode {mode:o}")


def keys_of(file):
    """The keys of a file of the desktop that has one group."""
    lines = [line for line in file.read_text("utf-8").splitlines() if "=" in line and not line.startswith("#")]
    return dict(line.split("=", 1) for line in lines)


def check_opening(installed):
    """The names that desktops compare: a double click on a score reaches the program only if all of them agree."""
    share = installed / "share"
    entry = keys_of(share / "applications/org.velorin.velorin.desktop")
    service = keys_of(share / "dbus-1/services/org.velorin.velorin.service")
    thumbnailer = keys_of(share / "thumbnailers/velorin-score.thumbnailer")
    type_name = re.search(r'mime-type type="([^"]+)"', (share / "mime/packages/velorin.xml").read_text("utf-8"))[1]
    check(entry["DBusActivatable"] == "true" and service["Name"] == "org.velorin.velorin",
          f"the bus cannot start the program: {entry} {service}")
    check(service["Exec"] == "/usr/bin/velorin", f"the bus starts {service['Exec']}")
    check(thumbnailer["MimeType"] == type_name + ";", "the thumbnailer draws another type of file")
    check(entry["MimeType"] == type_name + ";audio/midi;", "the program opens other types of files")
    check((share / f"icons/hicolor/32x32/mimetypes/{type_name.replace('/', '-')}.png").exists(), "scores have no icon")


def validate(installed, folder):
    share = installed / "share"
    checks = {
        "desktop-file-validate": sorted((share / "applications").iterdir()),
        "appstreamcli": ["validate", "--pedantic", "--strict", "--no-net", *sorted((share / "metainfo").iterdir())],
    }
    for tool, arguments in checks.items():
        told([tool, *arguments])
    for page in sorted((share / "man/man1").iterdir()):
        text = told(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page],
                    env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"})
        check("warning" not in text, f"{page.name}: {text[:2000]}")
    mime = folder / "mime"
    shutil.copytree(share / "mime", mime)
    told(["update-mime-database", mime])
    globs = (mime / "globs2").read_text("utf-8").splitlines()
    check("50:application/x-velorin-score:*.sng" in globs, f"the file type of .sng is not declared: {globs}")
    icons = (mime / "icons").read_text("utf-8").splitlines()
    check("application/x-velorin-score:application-x-velorin-score" in icons, f"scores have no icon: {icons}")


def check_converter_entry(installed):
    """The window is offered for all that it takes, and the name of its entry is that of its window."""
    share = installed / "share"
    entry = keys_of(share / "applications/velorin-converter.desktop")
    check(entry["Exec"] == "velorin-converter %F", f"the desktop starts {entry['Exec']}")
    types = entry["MimeType"].rstrip(";").split(";")
    check({"application/x-velorin-score", "audio/midi", "audio/x-wav", "audio/wav", "audio/vnd.wave"} <= set(types),
          f"the converter is offered for {types}")
    check((share / f"icons/hicolor/32x32/apps/{entry['Icon']}.png").exists(), "the converter has no icon")


class InstalledDesk(Desk):
    """Starts the installed program as a user with a home folder."""

    by_names = False  # the accessibility bus belongs to another user

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


def check_thumbnail(desk, song):
    """Runs the thumbnailer's command as a file manager does: the output's name has no ending."""
    line = keys_of(desk.installed / "share/thumbnailers/velorin-score.thumbnailer")["Exec"]
    codes = {"%s": "128", "%i": str(song), "%o": "thumb.X7b2", "%%": "%"}
    program, *words = [codes.get(word, word) for word in line.split()]
    check(program == "velorin-convert", f"the thumbnailer runs {program}")
    desk.convert(*words)
    picture = (desk.home / "thumb.X7b2").read_bytes()
    width, height = int.from_bytes(picture[16:20], "big"), int.from_bytes(picture[20:24], "big")
    check(picture.startswith(b"\x89PNG"), "the thumbnail is not a PNG file")
    check((width, height) == (128, 96), f"the thumbnail has {width} x {height} pixels")


def check_converter(desk):
    song = desk.installed / "share/velorin/songs/paper-boat.sng"
    for name, head in {"a.mid": b"MThd", "a.wav": b"RIFF", "a.png": b"\x89PNG"}.items():
        desk.convert(song, "-o", name)
        check((desk.home / name).read_bytes().startswith(head), f"{name} does not begin with {head}")
    check_thumbnail(desk, song)
    manual = subprocess.run(["gzip", "-dc", str(desk.installed / "share/man/man1/velorin-convert.1.gz")],
                            stdout=subprocess.PIPE, check=True).stdout.decode().replace("\\-", "-")
    usage = told([desk.installed / "bin/velorin-convert", "--help"])
    options = set(re.findall(r"--[a-z]+", usage))
    missing = sorted(option for option in options if option not in manual)
    check(len(options) > 8 and not missing, f"the manual page does not mention {missing}")


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


def words_of(field):
    """The names of the packages in a field, without versions."""
    return {word.split()[0] for word in field.replace("|", ",").split(",") if word.strip()}


def check_sources():
    """What the package is built with is in the list that ./run and ./test install, and versions agree."""
    control = (TOP / "debian/control").read_text("utf-8")
    needed = words_of(re.search(r"^Build-Depends: ((?:.*\n)(?: .*\n)*)", control, re.M)[1]) - {"debhelper-compat"}
    lines = (TOP / "packages.txt").read_text("utf-8").splitlines()
    listed = {line.split()[0] for line in lines if line and not line.startswith("#")}
    check(len(needed) > 10 and needed <= listed, f"packages.txt has not {sorted(needed - listed)}")
    version = re.search(r"^project\(velorin VERSION (\S+)", (TOP / "CMakeLists.txt").read_text("utf-8"), re.M)[1]
    changelog = (TOP / "debian/changelog").read_text("utf-8")
    check(changelog.startswith(f"velorin ({version}) "), "the version of debian/changelog is another one")
    for file in sorted((TOP / "packaging").glob("*.metainfo.xml")):
        release = re.search(r'<release version="([^"]+)"', file.read_text("utf-8"))[1]
        check(release == version, f"the latest release in {file.name} is {release}")


def make_package(build, folder):
    """Packs the build by the rules of the package; returns the package and the description of its changes."""
    source = folder / "source"
    source.mkdir(parents=True)
    shutil.copytree(TOP / "debian", source / "debian")
    told(["dpkg-buildpackage", "-us", "-uc", "-b"], cwd=source, env={**os.environ, "VELORIN_BUILT": str(build)})
    package, = folder.glob("velorin_*.deb")
    changes, = folder.glob("velorin_*.changes")
    return package, changes


def check_source_package(folder):
    folder.mkdir(parents=True)
    told(["dpkg-source", "--build", TOP], cwd=folder)
    description, = folder.glob("velorin_*.dsc")
    told(["lintian", "--allow-root", "--fail-on", "error,warning", description])


def check_package(build, folder):
    package, changes = make_package(build, folder)
    listed = [line.split(None, 5) for line in told(["dpkg-deb", "--contents", package]).splitlines()]
    check(all(owner == "root/root" for _, owner, *_ in listed), "a file of the package does not belong to root")
    names = sorted(words[5].removeprefix("./usr/") for words in listed if not words[0].startswith("d"))
    expected = sorted([*FILES, *DOCUMENTS])
    check(names == expected, f"the files of the package differ from the list by {sorted(set(names) ^ set(expected))}")
    fields = fields_of(package)
    for needed in ("libqt6widgets6", "libqt6svg6", "libqt6dbus6", "libxcb1", "libfluidsynth3", "librtmidi6",
                   "timgm6mb-soundfont"):
        check(needed in fields["Depends"], f"the package does not depend on {needed}: {fields['Depends']}")
    check("libmp3lame0" in fields["Recommends"], "the package does not recommend the encoder")
    scripts = told(["dpkg-deb", "--info", package])
    check("postinst" not in scripts and "conffiles" not in scripts, "removing the package leaves files")
    told(["lintian", "--allow-root", "--fail-on", "error,warning", changes])


def test(build):
    os.umask(0o022)  # the usual one for installing for all users
    with tempfile.TemporaryDirectory(prefix="velorin-package-") as made:
        folder = pathlib.Path(made)
        folder.chmod(0o755)
        installed = install(build.resolve(), folder / "root")
        before = files_in(installed)
        check_files(installed)
        check_opening(installed)
        check_converter_entry(installed)
        validate(installed, folder)
        with InstalledDesk(build, installed) as desk:
            check_converter(desk)
            check_program(desk)
        check(files_in(installed) == before, "the installed files have changed")
        check_sources()
        check_package(build.resolve(), folder / "package")
        check_source_package(folder / "source-package")


run(test)
