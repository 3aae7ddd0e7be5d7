"""Measures encoding to MP3 against the `lame` program, and a folder of scores on one and on two cores."""

import os
import pathlib
import random
import resource
import shutil
import statistics
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests" / "e2e"))

import score_text  # noqa: E402
from desk import check, wait_until  # noqa: E402
from recorded import DELETE_WAV, ENCODE, OPEN, PREFERENCES, RECORD_PLAY, open_toolbar  # noqa: E402

PAIRS = 5
SOUND_FONT = "/usr/share/sounds/sf2/TimGM6mb.sf2"
# The lists on the toolbar's second tab.
FORMATS, BITRATES, QUALITIES = (372, 114), (304, 178), (440, 178)
BITRATE = 128
OFFERED_BITRATES = (32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320)
BITRATE_ROW = OFFERED_BITRATES.index(BITRATE)
# A row of the list of qualities for each number that lame has for them. The other rows have one of these numbers.
OFFERED_QUALITIES = {"Low": (0, 9), "Normal": (1, 5), "High": (2, 2), "Phone": (4, 7), "Hifi": (7, 3), "Studio": (9, 0)}
CONVERTER_BITRATES = (8, 16, 24, *OFFERED_BITRATES)
SETTING_ROUNDS = 5
SCORES = 100


def song(columns, tempo, seed=1):
    """Four rows of notes and a drum."""
    chance = random.Random(seed)
    score = score_text.Score(tempo)
    for row in range(4):
        instrument = chance.randrange(80)
        for column in range(0, columns - 4, 2):
            score.note(row, column, chance.randrange(50, 75), 2, instrument)
    for column in range(0, columns - 4, 4):
        score.note(8, column, 57, 1, 129)
    return score


def timed(command, environment=None):
    """Wall time and processor time of a program, seconds."""
    before, start = resource.getrusage(resource.RUSAGE_CHILDREN), time.monotonic()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, env=environment)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return (time.monotonic() - start,
            after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)


def add_ratio(add, name, ours, theirs, limit):
    """Adds the median speed relative to the other program, by wall time and by processor time."""
    for i, kind in enumerate(("wall", "processor")):
        ratios = [b[i] / a[i] for a, b in zip(ours, theirs)]
        told = f"{statistics.median(a[i] for a in ours):.2f} s, lame {statistics.median(b[i] for b in theirs):.2f} s"
        add(f"{name}, {kind} time", "x lame", ratios, f"{limit}", told, statistics.median(ratios) >= limit)


def loop_seconds(pid):
    """Processor time of the first thread, which encodes, without the threads of the sound."""
    return int(pathlib.Path(f"/proc/{pid}/task/{pid}/schedstat").read_text().split()[0]) / 1e9


def has_open(pid, file):
    """Whether a process has a file open."""
    for descriptor in pathlib.Path(f"/proc/{pid}/fd").iterdir():
        try:
            if descriptor.readlink() == file:
                return True
        except FileNotFoundError:
            pass  # closed meanwhile
    return False


def press_encode(desk, program, mp3):
    mp3.unlink(missing_ok=True)
    pid = program.process.pid
    place = program.place_in("Recording Toolbar", ENCODE)
    desk.point(*place)
    used, start = loop_seconds(pid), time.time()
    desk.click(*place)

    def is_made():
        time.sleep(0.05)
        return mp3.exists() and mp3.stat().st_size > 0 and not has_open(pid, mp3)
    wait_until(is_made, "the MP3", 300)
    return mp3.stat().st_mtime - start, loop_seconds(pid) - used


def choose_stereo(desk, program):
    """Chooses the last format, for which the encoder gets two channels at 44,100 Hz."""
    desk.click(*program.place_in("Recording Toolbar", PREFERENCES))
    with desk.popup():
        desk.click(*program.place_in("Recording Toolbar", FORMATS))
    with desk.popup(opens=False):
        desk.key("End", "Return")
    desk.click(*program.place_in("Recording Toolbar", RECORD_PLAY))


def choose(desk, program, place, row):
    """Chooses a row of a list on the tab that is shown."""
    with desk.popup():
        desk.click(*program.place_in("Recording Toolbar", place))
    with desk.popup(opens=False):
        desk.key("Home", *["Down"] * row, "Return")


def print_setting(name, ours, theirs):
    """Prints the processor time of one setting, and returns how many times as fast as lame it is. The shortest of the
    rounds counts: other work on the machine only adds to it, at times a third of it."""
    ratio = min(theirs) / min(ours)
    print(f"{name:38} {min(ours):6.3f} s, lame {min(theirs):6.3f} s: {ratio:.2f} x", flush=True)
    return ratio


def measure_settings(desk, build):
    """Goes through all bitrates and qualities that the windows offer, by processor time: other work on the machine
    changes it less than wall time. Prints a line for each."""
    desk.songs.mkdir(exist_ok=True)
    score, wav = desk.folder / "short.sng", desk.songs / "short.wav"
    score.write_bytes(song(300, 100).text())
    convert = build / "bin" / "velorin-convert"
    subprocess.run([convert, score, "-o", wav, "--soundfont", SOUND_FONT], check=True)
    ours, theirs = desk.folder / "ours.mp3", desk.folder / "theirs.mp3"
    ratios = {}
    for bitrate in CONVERTER_BITRATES:
        pairs = [(timed([convert, wav, "-o", ours, "--bitrate", str(bitrate)])[1],
                  timed(["lame", "--quiet", "-m", "j", "-b", str(bitrate), wav, theirs])[1])
                 for _ in range(SETTING_ROUNDS)]
        name = f"velorin-convert, {bitrate} kbit/s"
        ratios[name] = print_setting(name, *zip(*pairs))
    program = desk.launch()
    program.main_window()
    open_toolbar(desk, program, DELETE_WAV)
    choose_stereo(desk, program)
    desk.click(*program.place_in("Recording Toolbar", OPEN))
    desk.choose_file("Open File", wav.name)
    for quality, (row, number) in OFFERED_QUALITIES.items():
        for bitrate_row, bitrate in enumerate(OFFERED_BITRATES):
            desk.click(*program.place_in("Recording Toolbar", PREFERENCES))
            choose(desk, program, BITRATES, bitrate_row)
            choose(desk, program, QUALITIES, row)
            desk.click(*program.place_in("Recording Toolbar", RECORD_PLAY))
            mp3 = wav.with_suffix(".mp3")
            pairs = [(press_encode(desk, program, mp3)[1],
                      timed(["lame", "--quiet", "-m", "j", "-b", str(bitrate), "-q", str(number), wav, theirs])[1])
                     for _ in range(SETTING_ROUNDS)]
            size, expected = mp3.stat().st_size, theirs.stat().st_size
            check(abs(size - expected) < 0.02 * expected, f"the MP3 has {size} bytes instead of {expected}")
            name = f"the button, {bitrate} kbit/s, {quality}"
            ratios[name] = print_setting(name, *zip(*pairs))
    program.end()
    slowest = min(ratios, key=ratios.get)
    print(f"{len(ratios)} settings; the slowest is {slowest}: {ratios[slowest]:.2f} x lame")


def densest_song():
    """The example song with the most cells that are not empty."""
    songs = sorted((HERE.parent / "src" / "resources" / "songs").glob("*.sng"))
    return max(songs, key=lambda song: sum(cell != b"-1" for line in song.read_bytes().splitlines()[0:26:2]
                                           for cell in line.split(b",")))


def measure_song(desk, build, add):
    """Measures one song on two cores against the same program on one core. The files must be equal. Not faster than
    the encoder alone: the floor is the time that it takes for the rendered sound."""
    song_file = densest_song()
    convert = [build / "bin" / "velorin-convert", "--soundfont", SOUND_FONT]
    wav, one, two = (desk.folder / name for name in ("dense.wav", "one.mp3", "two.mp3"))
    subprocess.run([*convert, song_file, "-o", wav], check=True)
    alone, together, encoder = [], [], []
    for _ in range(2 * PAIRS - 1):
        alone.append(timed(["taskset", "-c", "0", *convert, song_file, "-o", one])[0])
        together.append(timed([*convert, song_file, "-o", two])[0])
        encoder.append(timed([*convert, wav, "-o", desk.folder / "floor.mp3"])[0])
        check(one.read_bytes() == two.read_bytes(), "the MP3 of two cores differs from that of one")
    faster = [a / b for a, b in zip(alone, together)]
    told = "{:.2f} s and {:.2f} s; encoding alone {:.2f} s".format(
        *(statistics.median(times) for times in (alone, together, encoder)))
    enough = len(os.sched_getaffinity(0)) >= 2
    add(f"{song_file.stem} to MP3, two cores", "x one", faster, "1.7", told,
        statistics.median(faster) >= 1.7 if enough else None)


def measure_encode(desk, build, add):
    measure_song(desk, build, add)
    desk.songs.mkdir(exist_ok=True)
    score, wav = desk.folder / "song.sng", desk.songs / "song.wav"
    score.write_bytes(song(1000, 50).text())
    convert = build / "bin" / "velorin-convert"
    subprocess.run([convert, score, "-o", wav, "--soundfont", SOUND_FONT], check=True)
    ours, theirs = desk.folder / "ours.mp3", desk.folder / "theirs.mp3"
    lame = ["lame", "--quiet", "-b", str(BITRATE), "-m", "j"]
    settings = desk.home / ".config" / "velorin" / "Velorin 2.1.ini"
    settings.parent.mkdir(parents=True, exist_ok=True)
    settings.write_text(f"[Settings]\nMP3%20bitrate={BITRATE_ROW}\n")
    program = desk.launch()
    program.main_window()
    open_toolbar(desk, program, DELETE_WAV)
    choose_stereo(desk, program)
    desk.click(*program.place_in("Recording Toolbar", OPEN))
    desk.choose_file("Open File", wav.name)
    button, by_lame = [], []
    for _ in range(PAIRS):
        button.append(press_encode(desk, program, wav.with_suffix(".mp3")))
        by_lame.append(timed([*lame, "-q", "5", wav, theirs]))  # the quality "Normal"
    size, expected = wav.with_suffix(".mp3").stat().st_size, theirs.stat().st_size
    check(abs(size - expected) < 0.01 * expected, f"the MP3 has {size} bytes instead of {expected}")
    program.end()
    add_ratio(add, "encoding by the button", button, by_lame, 1.0)
    converted, by_lame = [], []
    for _ in range(PAIRS):
        converted.append(timed([convert, wav, "-o", ours, "--bitrate", str(BITRATE)]))
        by_lame.append(timed([*lame, wav, theirs]))
    add_ratio(add, "encoding by velorin-convert", converted, by_lame, 1.0)


def both_at_once(first, second):
    """Wall time of two independent programs."""
    start = time.monotonic()
    running = [subprocess.Popen(command, stdout=subprocess.DEVNULL) for command in (first, second)]
    check(all([process.wait() == 0 for process in running]), "a program failed")
    return time.monotonic() - start


def measure_folder(desk, build, add):
    """Measures two jobs against one. Two programs with half of the scores each show what the machine can reach."""
    scores, halves = desk.folder / "scores", [desk.folder / "half1", desk.folder / "half2"]
    for folder in (scores, *halves):
        folder.mkdir()
    for i in range(SCORES):
        for folder in (scores, halves[i % 2]):
            (folder / f"{i}.sng").write_bytes(song(120, 100, i).text())
    convert = [build / "bin" / "velorin-convert", "--to", "mp3", "--soundfont", SOUND_FONT]
    runs, apart = {1: [], 2: []}, []
    for _ in range(3):
        for jobs, taken in runs.items():
            out = desk.folder / f"out{jobs}"
            shutil.rmtree(out, ignore_errors=True)
            taken.append(timed([*convert, "--out", out, "--jobs", str(jobs), scores]))
            check(len(list(out.glob("*.mp3"))) == SCORES, "an MP3 is missing")
        for half in halves:
            shutil.rmtree(half / "out", ignore_errors=True)
        apart.append(both_at_once(*([*convert, "--out", half / "out", "--jobs", "1", half] for half in halves)))
    faster = [one[0] / two[0] for one, two in zip(runs[1], runs[2])]
    ceiling = statistics.median(one[0] / two for one, two in zip(runs[1], apart))
    told = "{:.1f} s and {:.1f} s; two programs with half each {:.2f} x".format(
        *(statistics.median(run[0] for run in runs[jobs]) for jobs in (1, 2)), ceiling)
    enough = len(os.sched_getaffinity(0)) >= 2
    add(f"{SCORES} scores to MP3, two jobs", "x one", faster, "1.8", told,
        statistics.median(faster) >= 1.8 if enough else None)
    add("the same, processor time", "x one", [two[1] / one[1] for one, two in zip(runs[1], runs[2])], "")
