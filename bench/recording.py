"""Records pieces in real time, all at once, and compares each WAV with the rendered sound of the same piece."""

import array
import concurrent.futures
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
from desk import Desk, DeskWithoutSound, check, wait_until  # noqa: E402
from recorded import AUTO_ENCODE, OPEN, START, open_toolbar  # noqa: E402

WOODBLOCK, WOOD_BLOCK_KEY = 115, 169
LAST_COLUMN = 1000
APART = 2  # columns from one beat to the next
SEARCHED = 3 * 4 * listen.RATE  # bytes that are searched after silence that the server inserted
MIDI_LONGER = 1.25  # a MID file plays at four fifths of the speed of its score
NEIGHBOURS = 5  # beats on either side


def score_of(seconds):
    """All thirteen rows beat in every second column. A long piece is slow, since the number of columns is limited."""
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
    """Samples the processor time and the memory of a recording process every second."""

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
    """The share of the recorded samples that the sound server played, in per cent, and the number of gaps. In a gap the
    server played its own silence, since it got no samples in time."""
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


def p99(values):
    return sorted(values)[min(len(values) - 1, int(0.99 * len(values)))]


def off_neighbours(off):
    """The distance of each beat from the average of its neighbours. Sounding and drawing delay each column a little,
    which shifts all beats evenly."""
    around = range(NEIGHBOURS, len(off) - NEIGHBOURS)
    return [abs(off[i] - statistics.mean(off[i - NEIGHBOURS:i + NEIGHBOURS + 1])) for i in around]


def compare(both, rendered, name, is_midi):
    """The table rows about onsets."""
    mine, expected = onsets_of(both), onsets_of(sound_of(rendered))
    check(len(mine) == len(expected), f"{len(mine)} beats were recorded instead of {len(expected)}")
    off = [1000 * (a - b) / listen.RATE for a, b in zip(mine, expected)]
    gaps = sum(b - a < -5 for a, b in zip(off, off[1:]))
    yield f"{name}: gaps", "", [gaps], "0", f"{len(mine)} beats, as in the rendered WAV", gaps == 0, 0
    local = off_neighbours(off)
    yield (f"{name}: onsets off their neighbours', p99", "ms", [p99(local)], "1.5",
           f"p50 {statistics.median(local):.2f}, worst {max(local):.2f} ms", p99(local) <= 1.5)
    if is_midi:
        middle = (max(off) + min(off)) / 2
        worst = max(abs(value - middle) for value in off)
        yield f"{name}: onsets off, worst", "ms", [worst], "1.5", f"over {mine[-1] / listen.RATE:.0f} s", worst <= 1.5
    else:
        later = (off[-1] - off[0]) / APART / (len(off) - 1)
        yield f"{name}: a column later than its time", "ms", [later], "", "what sounding and drawing take"


def figures_of(watch, name):
    share = watch.processor_share()
    yield f"{name}: processor", "% of a core", [share], "15", "", share < 15
    memory = [mib for _, _, mib in watch.seen]
    # The buffer of the tap is used for the first time during the first twenty seconds, so its memory is counted then.
    settled = memory[min(25, len(memory) - 1)]
    yield (f"{name}: memory at the end", "MiB", [memory[-1]], "no growth",
           f"at the start {memory[0]:.1f} MiB, after 25 s {settled:.1f} MiB",
           memory[-1] - settled < 1 if len(memory) > 50 else None, 1)


def take(desk, build, seconds, source, name, start_watch):
    """Makes one recording and returns its table rows."""
    desk.songs.mkdir(exist_ok=True)
    score, midi, rendered = desk.songs / "beats.sng", desk.songs / "beats.mid", desk.folder / "rendered.wav"
    score.write_bytes(score_of(seconds / MIDI_LONGER if source is midi_source else seconds).text())
    convert = [build / "bin" / "velorin-convert", "--soundfont", "/usr/share/sounds/sf2/TimGM6mb.sf2"]
    if source is midi_source:
        subprocess.run([*convert, score, "-o", midi], check=True)
    subprocess.run([*convert, midi if source is midi_source else score, "-o", rendered], check=True)
    program = desk.launch()
    program.main_window()
    source(desk, program, score, midi)
    time.sleep(1)
    heard_from = desk.recording.stat().st_size if desk.hears else 0
    wav, watch = record(desk, program, seconds, lambda: start_watch(program.process.pid))
    both = sound_of(wav)
    rows = [*compare(both, rendered, name, source is midi_source), *figures_of(watch, name)]
    if desk.hears:
        same, breaks = same_as_heard(both, desk.recording, heard_from)
        rows.append((f"{name}: samples as it played them", "%", [same], "",
                     f"{len(both) // 2} frames; fed late {breaks} times", None, 2))
    program.press(14)
    program.process.wait()
    return rows


def score_source(desk, program, score, _):
    program.press(2)
    desk.choose_file("Open Score File", score.name)
    time.sleep(2)
    open_toolbar(desk, program, AUTO_ENCODE)


def midi_source(desk, program, _, midi):
    open_toolbar(desk, program, AUTO_ENCODE)
    desk.click(*program.place_in("Recording Toolbar", OPEN))
    desk.choose_file("Open File", midi.name)


TAKES = [(DeskWithoutSound, score_source, "recording a score"),
         (DeskWithoutSound, midi_source, "recording a MID file"),
         (Desk, score_source, "recording beside a sound server")]


def measure(build, seconds, add, processor_seconds, memory_mib):
    """Records a score and its MID file without a sound card, and the score with a sound server, which has its own clock.
    All run at once, since each takes as long as it plays."""
    def run(kind):
        desk_type, source, name = kind
        with desk_type(build) as desk:
            return take(desk, build, seconds, source, name, lambda pid: Watch(pid, processor_seconds, memory_mib))

    with concurrent.futures.ThreadPoolExecutor(len(TAKES)) as pool:
        for rows in list(pool.map(run, TAKES)):
            for row in rows:
                add(*row)
