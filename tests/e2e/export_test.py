"""Exports a song in the real program while it plays: every kind, replace, cancel, a full disk, and the choices of the last run."""

import array
import resource
import subprocess

import listen
from desk import Desk, Program, check, run, wait_until
from export_window import CARDS, EXPORT, NAME, PLAY, SHOW, Exports
from score_text import Score

BEGINNINGS = {".mp3": (b"\xff", b"ID3"), ".wav": (b"RIFF",), ".mid": (b"MThd",), ".html": (b"<!",), ".png": (b"\x89PNG",)}
ORGAN = 19
TEMPO = 60  # a column lasts a fifth of a second


class ProgramOnSmallDisk(Program):
    """A program whose files can be kept from growing, as on a full disk."""

    PREFIX = ("env", "--ignore-signal=XFSZ")

    def fill_disk(self, full):
        most = resource.prlimit(self.process.pid, resource.RLIMIT_FSIZE)[1]
        resource.prlimit(self.process.pid, resource.RLIMIT_FSIZE, (0 if full else most, most))


def long_song():
    """Two hundred seconds of notes."""
    score = Score(TEMPO)
    for i in range(250):
        score.note(0, 4 * i, 60 + i % 12, 4, ORGAN)
    return score


def launch(desk):
    program = ProgramOnSmallDisk(desk)
    desk.programs.append(program)
    program.main_window()
    return program


def open_song(desk, program, score):
    (desk.songs / "boat.sng").write_bytes(score.text())
    program.press(2)
    desk.choose_file("Open Score File", desk.songs / "boat.sng")
    program.wait_for_colour(program.cell(0, 5), (255, 0, 0), "the first note")


def file_of(desk, name):
    return desk.songs / name


def wait_for_file(desk, name):
    """A file has its name only when it is complete."""
    file = file_of(desk, name)
    wait_until(file.exists, f"the file {name}")
    check(file.read_bytes().startswith(BEGINNINGS[file.suffix]), f"{name} begins with {file.read_bytes()[:8]}")
    return file


def no_half_file(desk):
    left = sorted(file.name for file in desk.songs.iterdir() if file.name.startswith("."))
    check(not left, f"left in the folder: {left}")


def export_while_playing(desk, program, exports):
    """The song goes on while a file of each kind is made."""
    start = listen.frames_in(desk.recording)
    program.press(6)
    wait_until(lambda: listen.first_sound(listen.samples(desk.recording, start)) is not None, "the start of the song")
    exports.open()
    for kind in CARDS:
        exports.choose(kind)
        exports.export_another()
        wait_for_file(desk, "boat" + kind)
    end = listen.frames_in(desk.recording)
    wait_until(lambda: listen.frames_in(desk.recording) > end + listen.RATE, "the sound after the exports")
    check(not listen.is_quiet(listen.samples(desk.recording, end)), "the song does not play on")
    sound = listen.samples(desk.recording, start)
    pieces = [sound[i:i + listen.RATE // 2] for i in range(listen.RATE, len(sound) - listen.RATE, listen.RATE // 2)]
    check(not any(listen.is_quiet(piece) for piece in pieces), "the song was interrupted")
    program.press(8)
    no_half_file(desk)


def decoded(file, folder):
    """The left channel of a sound file, 44,100 frames a second."""
    wav = folder / (file.name + ".raw")
    if file.suffix == ".mp3":
        command = ["mpg123", "-q", "-r", "44100", "-s", file]
    else:
        command = ["sox", file, "-t", "raw", "-r", "44100", "-e", "signed", "-b", "16", "-c", "2", "-"]
    with open(wav, "wb") as out:
        subprocess.run(command, stdout=out, check=True)
    both = array.array("h", wav.read_bytes())
    return both[0::2]


def mp3_sounds_as_the_wav(desk):
    mp3, wav = (decoded(file_of(desk, "boat" + kind), desk.folder) for kind in (".mp3", ".wav"))
    check(abs(len(mp3) - len(wav)) < 0.2 * listen.RATE, f"{len(mp3)} frames instead of {len(wav)}")
    for second in (1, 20, 100, 190):
        at = second * listen.RATE
        heard, expected = (listen.key_of(sound[at:at + 4096]) for sound in (mp3, wav))
        check(heard == expected, f"the MP3 has key {heard} at {second} s, the WAV key {expected}")
        loud = [sum(abs(value) for value in sound[at:at + listen.RATE]) for sound in (mp3, wav)]
        check(0.9 < loud[0] / loud[1] < 1.1, f"the MP3 is {loud[0] / loud[1]:.2f} times as loud at {second} s")


def replace_and_cancel(desk, exports):
    """A name that is there is replaced by a second press only. A cancelled file leaves the old one."""
    exports.choose(".wav")
    exports.press(EXPORT)
    wait_until(lambda: any(name.name.startswith(".") for name in desk.songs.iterdir()), "the file that is written")
    old = file_of(desk, "boat.wav").stat().st_mtime_ns
    exports.press(EXPORT)
    wait_until(lambda: not any(name.name.startswith(".") for name in desk.songs.iterdir()), "the end of the work")
    check(file_of(desk, "boat.wav").stat().st_mtime_ns == old, "a cancelled export has replaced the file")
    file_of(desk, "boat.mid").write_bytes(b"mine")
    desk.still(exports.result, "a window that does not work any more")
    exports.choose(".mid")
    exports.export_another()
    check(file_of(desk, "boat.mid").read_bytes().startswith(b"MThd"), "the file was not replaced")


def full_disk(desk, program, exports):
    file_of(desk, "boat.png").write_bytes(b"mine")
    exports.choose(".png")
    program.fill_disk(True)
    exports.export_another()
    program.fill_disk(False)
    check(file_of(desk, "boat.png").read_bytes() == b"mine", "the file was replaced on a full disk")
    no_half_file(desk)
    exports.export_another()
    check(file_of(desk, "boat.png").read_bytes() != b"mine", "there is no picture, with room on the disk")
    wait_for_file(desk, "boat.png")


def play_and_show(desk, exports, asked, calls):
    """A MIDI file is played by the Recording Toolbar; a picture is opened by the desktop. The file manager is asked
    for the folder; there is none, so the program for folders opens it."""
    exports.press(PLAY)
    wait_until(lambda: asked.exists() and "boat.png" in asked.read_text(), "the program for pictures")
    exports.press(SHOW)
    wait_until(lambda: "ShowItems" in calls.read_text() and f"file://{file_of(desk, 'boat.png')}" in calls.read_text(),
               "the call of the file manager")
    wait_until(lambda: f"{desk.songs}\n" in asked.read_text(), "the program for folders")
    exports.choose(".mid")
    exports.export_another()
    exports.press(PLAY)
    desk.window("Recording Toolbar")
    start = listen.frames_in(desk.recording)
    wait_until(lambda: not listen.is_quiet(listen.samples(desk.recording, start)), "the MIDI file")
    desk.key("Escape")


def end_while_it_works(desk, program, exports):
    exports.choose(".wav")
    exports.press(EXPORT)
    wait_until(lambda: any(name.name.startswith(".") for name in desk.songs.iterdir()), "the file that is written")
    program.end()
    no_half_file(desk)


def next_run(desk, score):
    """The kind and the folder of the last run are chosen, so Enter makes the same kind."""
    file_of(desk, "boat.wav").unlink()
    program = launch(desk)
    open_song(desk, program, score)
    exports = Exports(desk)
    program.take_keyboard()
    exports.open()
    desk.point(*exports.at(NAME))
    desk.key("Return")
    wait_for_file(desk, "boat.wav")
    program.end()


def fake_opener(desk):
    """A program that writes down what it is asked to open, in the place of the desktop's."""
    folder, asked = desk.folder / "bin", desk.folder / "asked.txt"
    folder.mkdir()
    opener = folder / "xdg-open"
    opener.write_text(f'#!/bin/sh\nprintf "%s\\n" "$1" | sed "s,^file://,," >> {asked}\n')
    opener.chmod(0o755)
    desk.environment["PATH"] = f"{folder}:{desk.environment['PATH']}"
    return asked


def monitor_of_calls(desk):
    """The file of the calls for a file manager. The session has none."""
    calls = desk.folder / "calls.txt"
    desk.start(["dbus-monitor", "--session", "interface=org.freedesktop.FileManager1"], stdout=open(calls, "wb"))
    wait_until(lambda: calls.stat().st_size > 0, "the monitor of the bus")
    return calls


def test(build):
    with Desk(build) as desk:
        asked, calls = fake_opener(desk), monitor_of_calls(desk)
        score = long_song()
        program = launch(desk)
        open_song(desk, program, score)
        exports = Exports(desk)
        export_while_playing(desk, program, exports)
        mp3_sounds_as_the_wav(desk)
        replace_and_cancel(desk, exports)
        full_disk(desk, program, exports)
        play_and_show(desk, exports, asked, calls)
        end_while_it_works(desk, program, exports)
        next_run(desk, score)


run(test)
