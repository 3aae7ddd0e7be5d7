"""Records a piece in real time and compares the WAV with the rendered sound of the same piece."""

import array
import pathlib
import statistics
import subprocess
import sys
import threading
import time
import wave

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests" / "e2e"))

import listen  # noqa: E402
import score_text  # noqa: E402
from desk import check, wait_until  # noqa: E402
from recorded import AUTO_ENCODE, OPEN, START, open_toolbar  # noqa: E402

WOODBLOCK, WOOD_BLOCK_KEY = 115, 169
LAST_COLUMN = 1000
APART = 2  # columns from one beat to the next
SEARCHED = 3 * 4 * listen.RATE  # bytes, for what comes behind a silence of the server's own
MIDI_LONGER = 1.25  # a MID file plays at four fifths of its score's speed


def score_of(seconds):
    """All thirteen rows beat at every second column; a long piece is a slow one, for the columns are limited."""
    tempo = max(1, min(100, int(12 * LAST_COLUMN / seconds)))
    last = min(LAST_COLUMN, int(seconds * tempo / 12))
    score = score_text.Score(tempo)
    for row in range(score_text.ROWS):
        instrument = WOODBLOCK if row < 8 else WOOD_BLOCK_KEY
        score.row_instruments[row] = instrument
        for column in range(1, last, APART):
            score.note(row, column, 50 + row, 1, instrument)
    return score


class Watch(threading.Thread):
    """What a process takes while it records: its processor time, and its memory from second to second."""

    def __init__(self, pid, processor_seconds, memory_mib):
        super().__init__(daemon=True)
        self.ask = lambda: (time.monotonic(), processor_seconds(pid), memory_mib(pid))
        self.seen, self.ending = [], threading.Event()
        self.start()

    def run(self):
        while not self.ending.wait(1):
            self.seen.append(self.ask())

    def end(self):
        self.ending.set()
        self.join()

    def processor_share(self):
        (start, used, _), (end, used_in_all, _) = self.seen[0], self.seen[-1]
        return 100 * (used_in_all - used) / (end - start)


def sound_of(path):
    with wave.open(str(path), "rb") as file:
        return array.array("h", file.readframes(file.getnframes()))


def onsets_of(both):
    return listen.onsets(both[0::2], share=0.6)


def same_as_heard(both, heard_path, from_byte):
    """The share of the recording's samples that the sound server has played, in per cent, and the places where the
    server has played something else in between, silence of its own where it was not fed in time."""
    with open(heard_path, "rb") as file:
        file.seek(from_byte)
        heard = file.read()
    mine = both.tobytes()
    step, same, breaks, shift = 4096, 0, 0, None
    for at in range(0, len(mine), step):
        piece = mine[at:at + step]
        if shift is None or heard[at + shift:at + shift + len(piece)] != piece:
            place = max(0, at + (shift or 0))
            found = heard.find(piece, place, None if shift is None else place + SEARCHED) if any(piece) else -1
            if found < 0:
                continue
            breaks += shift is not None
            shift = found - at
        same += len(piece)
    return 100 * same / len(mine), breaks


def record(desk, program, seconds, start_watch):
    before = set(desk.songs.iterdir())
    watch = start_watch()
    desk.click(*program.place_in("Recording Toolbar", START))
    wav = wait_until(lambda: next((p for p in desk.songs.glob("*tmp.wav") if p not in before), None), "the WAV",
                     1.1 * seconds + 60)
    watch.end()
    return wav, watch


def compare(wav, rendered, add, source):
    """Onset by onset: from beat to beat, and in all after the best shift."""
    both = sound_of(wav)
    mine, expected = onsets_of(both), onsets_of(sound_of(rendered))
    check(len(mine) == len(expected), f"{len(mine)} beats were recorded and not {len(expected)}")
    off = [1000 * (a - b) / listen.RATE for a, b in zip(mine, expected)]
    steps = [b - a for a, b in zip(off, off[1:])]
    gaps = sum(step < -5 for step in steps)
    add(f"recording a {source}: gaps", "", [gaps], "0", f"{len(mine)} beats, as in the rendered WAV", gaps == 0, 0)
    sizes = sorted(map(abs, steps))
    p99 = sizes[min(len(sizes) - 1, int(0.99 * len(sizes)))]
    add(f"recording a {source}: distance of two beats off, p99", "ms", [p99], "1.5",
        f"p50 {statistics.median(sizes):.2f}, worst {sizes[-1]:.2f} ms", p99 <= 1.5)
    shift = (max(off) + min(off)) / 2
    worst = max(abs(value - shift) for value in off)
    add(f"recording a {source}: onsets off", "ms", [worst], "1.5" if source == "MID file" else "",
        f"over {len(both) / 2 / listen.RATE:.0f} s", worst <= 1.5 if source == "MID file" else None)
    return both


def measure(desk, build, seconds, add, processor_seconds, memory_mib):
    """A score, then the MID file of it: a thread of its own plays that by the clock."""
    desk.songs.mkdir(exist_ok=True)
    score, midi = desk.songs / "beats.sng", desk.songs / "beats.mid"
    score.write_bytes(score_of(seconds).text())
    short = desk.songs / "short.sng"
    short.write_bytes(score_of(seconds / MIDI_LONGER).text())
    convert = [build / "bin" / "velorin-convert", "--soundfont", "/usr/share/sounds/sf2/TimGM6mb.sf2"]
    subprocess.run([*convert, short, "-o", midi], check=True)
    program = desk.launch()
    program.main_window()
    program.press(2)
    desk.choose_file("Open Score File", score.name)
    time.sleep(2)
    open_toolbar(desk, program, AUTO_ENCODE)
    pid = program.process.pid
    for source, name, path in (("score", "score", score), ("MID file", "mid", midi)):
        rendered = desk.folder / f"{name}.wav"
        subprocess.run([*convert, path, "-o", rendered], check=True)
        if source == "MID file":
            desk.click(*program.place_in("Recording Toolbar", OPEN))
            desk.choose_file("Open File", midi.name)
        time.sleep(1)
        heard_from = desk.recording.stat().st_size
        wav, watch = record(desk, program, seconds, lambda: Watch(pid, processor_seconds, memory_mib))
        both = compare(wav, rendered, add, source)
        share = watch.processor_share()
        add(f"recording a {source}: processor", "% of a core", [share], "15", "", share < 15)
        memory = [mib for _, _, mib in watch.seen]
        # What the tap holds against a busy disk is written to for the first time in the first twenty seconds.
        settled = memory[min(25, len(memory) - 1)]
        add(f"recording a {source}: memory at the end", "MiB", [memory[-1]], "no growth",
            f"at the start {memory[0]:.1f} MiB, after 25 s {settled:.1f} MiB",
            memory[-1] - settled < 1 if len(memory) > 50 else None, 1)
        same, breaks = same_as_heard(both, desk.recording, heard_from)
        add(f"recording a {source}: samples as the sound server played them", "%", [same], "",
            f"{len(both) // 2} frames; the server was fed late {breaks} times", None, 2)
        wav.unlink()
    program.end()
