"""Measures rendering a song to WAV against other programs that play its MIDI file as it sounds.

All make the same sound: the same notes, chords and drums at the same times, from the same SoundFont, at the same rate, with
reverberation and chorus on. They differ in the silence behind it, so the song is long, and the seconds of each are told.
"""

import array
import json
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
import wave

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests" / "e2e"))

import score_text  # noqa: E402
from desk import check  # noqa: E402

ROUNDS = 9
RATE = 44100
SOUND_FONT = "/usr/share/sounds/sf2/TimGM6mb.sf2"
SONG = HERE.parent / "src" / "resources" / "songs" / "market-street.sng"
BAR = 4  # columns
AUDIBLE = 2  # of 32,767
MOST_APART_S = 0.1  # what the ends of the sounds may be apart: each program has its own end of a reverberation


def long_song():
    """The song again and again, until the grid is full."""
    data = SONG.read_bytes()
    notes, marks = score_text.runs(data)
    lines = data.decode().split("\r\n")
    width = -(-max(column + length for (_, column), (_, length, _) in notes.items()) // BAR) * BAR
    score = score_text.Score(int(lines[2 * score_text.ROWS]))
    score.row_instruments = list(map(int, lines[2 * score_text.ROWS + 1].split(",")))
    for start in range(0, score_text.COLUMNS - width, width):
        for (row, column), (pitch, length, instrument) in notes.items():
            score.note(row, start + column, pitch, length, instrument)
        for lane, column in marks:
            score.marks[lane, start + column] = 1
    return score


def used_by(command):
    """Wall seconds, MiB at the most, and processor seconds of a program."""
    start = time.monotonic()
    child = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    check(status == 0, "failed: " + " ".join(map(str, command)))
    return time.monotonic() - start, usage.ru_maxrss / 1024, usage.ru_utime + usage.ru_stime


def seconds_of(file):
    """The seconds of a WAV, and of its sound up to the last audible frame."""
    with wave.open(str(file)) as sound:
        frames = sound.getnframes()
        values = array.array("h", sound.readframes(frames))
    last = next(i for i in range(len(values) - 1, -1, -1) if abs(values[i]) >= AUDIBLE)
    return frames / RATE, last / 2 / RATE


def measure_programs(build):
    """The runs of each program, and the lengths of the sounds that are compared."""
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        song, midi = work / "song.sng", work / "song.mid"
        song.write_bytes(long_song().text())
        convert = build / "bin" / "velorin-convert"
        subprocess.run([convert, song, "-o", midi], check=True, stdout=subprocess.DEVNULL)
        commands = {
            "velorin": [convert, song, "--soundfont", SOUND_FONT, "--rate", str(RATE), "-o", work / "velorin.wav"],
            "fluidsynth": ["fluidsynth", "-q", "-ni", "-F", work / "fluidsynth.wav", "-T", "wav", "-r", str(RATE),
                           SOUND_FONT, midi]}
        if shutil.which("timidity"):
            commands["timidity"] = ["timidity", "-Ow", "-s", str(RATE), "-x", f"soundfont {SOUND_FONT}", "-o",
                                    work / "timidity.wav", midi]
        runs = {name: [] for name in commands}
        for _ in range(ROUNDS):
            for name, command in commands.items():
                runs[name].append(used_by(command))
        return runs, {name: seconds_of(work / f"{name}.wav") for name in ("velorin", "fluidsynth")}


def measure(build, add):
    """In an interpreter of its own: the peak of a program counts from the memory of the process that starts it."""
    told = subprocess.run([sys.executable, __file__, build], check=True, stdout=subprocess.PIPE).stdout
    add_rows(add, *json.loads(told))


def add_rows(add, runs, lengths):
    apart = abs(lengths["velorin"][1] - lengths["fluidsynth"][1])
    check(apart < MOST_APART_S, f"the sounds end {apart:.2f} s apart, so they are not the same")
    middle = {name: [statistics.median(column) for column in zip(*values)] for name, values in runs.items()}
    told = (f"fluidsynth -F {middle['fluidsynth'][0]:.3f} s for {lengths['fluidsynth'][0]:.1f} s of sound, Velorin "
            f"{middle['velorin'][0]:.3f} s for {lengths['velorin'][0]:.1f} s")
    if "timidity" in middle:
        told += f"; timidity {middle['timidity'][0]:.3f} s"
    for i, kind in ((0, "wall"), (2, "processor")):
        # Per second of sound: the other program renders a longer silence at the end.
        ratios = [ours[i] / lengths["velorin"][0] / (theirs[i] / lengths["fluidsynth"][0])
                  for ours, theirs in zip(runs["velorin"], runs["fluidsynth"])]
        add(f"rendering a song to WAV, {kind} time of a second of sound", "x fluidsynth -F", ratios, "0.8",
            told if i == 0 else "", statistics.median(ratios) <= 0.8)
    add("memory of rendering", "MiB", [run[1] for run in runs["velorin"]], "1 x",
        f"fluidsynth -F {middle['fluidsynth'][1]:.1f} MiB", middle["velorin"][1] <= middle["fluidsynth"][1], 1)


if __name__ == "__main__":
    print(json.dumps(measure_programs(pathlib.Path(sys.argv[1]))))
