#!/usr/bin/env python3
"""Random scores as MIDI files through `fluidsynth -F`, against the sound files that the converter makes of them.

FluidSynth begins notes in blocks of 64 frames. To know in which block each note of a sound begins, the script makes the
sound again from messages, with FluidSynth as a library, and compares the samples. The converter's sound is made from
the messages of the MIDI file at the times of the score's columns; all bytes must be equal. The sound of `fluidsynth -F`
is made with the player of the library, which tells when it sends each note; all samples must be equal but for dither.
So both sounds have every note, and the distance of its two blocks is its error. The sound of `fluidsynth -F` begins with
a block more, which does not count. The notes are also counted against the cells of the score.

Before the scores, the script leaves a note out, and moves one by 2 ms. It fails if it does not notice.
"""

import argparse
import array
import collections
import operator
import pathlib
import random
import struct
import subprocess
import sys
import tempfile

from fluid import BLOCK, block_of_time, column_times, played, rendered
from midi_events import MidiEvents

ROWS, MUSIC_ROWS, COLUMNS = 13, 8, 60
MOST_MS = 1.5
MOST_TICK_NS = 300_000
DITHER = 4  # steps of 16 bits by which two dithers of the same sound may differ
RATE = 44100
FONT = "/usr/share/sounds/sf2/TimGM6mb.sf2"


class RandomScore:
    """Notes, rests and held cells in a random number of rows, with chord marks and changing instruments."""

    def __init__(self, seed):
        rng = random.Random(seed)
        self.tempo = rng.choice([20, 300, rng.randint(20, 300), rng.randint(60, 300), rng.randint(60, 300)])
        columns = min(rng.randint(1, COLUMNS), self.tempo // 2)
        used = rng.sample(range(ROWS), rng.randint(1, ROWS))
        self.rows = [self.row(rng, row, columns) if row in used else ([-1], [0]) for row in range(ROWS)]
        self.marks = [[int(rng.random() < 0.3) for _ in range(columns + 1)] for _ in range(MUSIC_ROWS)]

    @staticmethod
    def row(rng, row, columns):
        density, hold = rng.uniform(0.1, 1.0), rng.uniform(0.0, 0.8)
        is_drums = row >= MUSIC_ROWS and rng.random() < 0.9
        instrument = 128 + rng.randrange(47) if is_drums else rng.randrange(128)
        notes, instruments = [], []
        while len(notes) < columns:
            if rng.random() > density:
                notes.append(-1)
                instruments.append(0)
                continue
            if rng.random() < 0.1:
                instrument = rng.choice([128 + rng.randrange(47), rng.randrange(128)])
            pitch = rng.randint(0, 127) if rng.random() < 0.1 else rng.randint(40, 90)
            notes.append(pitch)
            instruments.append(instrument)
            while len(notes) < columns and rng.random() < hold:
                notes.append(1000 + pitch)
                instruments.append(instrument)
        return notes[:columns], instruments[:columns]

    def text(self):
        lines = [",".join(map(str, cells)) for row in self.rows for cells in row]
        lines += [f" {self.tempo} ", ",".join("0" * ROWS), "Polyphonics"]
        lines += [",".join(map(str, marks)) for marks in self.marks]
        return "".join(line + "\r\n" for line in lines)


def told(*command):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if done.returncode != 0:
        raise SystemExit(f"{command[0]} failed: {done.stdout.decode()}")


def sound_of(wav):
    """The samples of a WAV file as bytes."""
    data = wav.read_bytes()
    at = 12
    while data[at:at + 4] != b"data":
        at += 8 + struct.unpack("<I", data[at + 4:at + 8])[0]
    return data[at + 8:at + 8 + struct.unpack("<I", data[at + 4:at + 8])[0]]


def first_difference(one, other, most):
    """The first frame in which two sounds differ by more than `most` within the length of both; none if they do not."""
    count = min(len(one), len(other))
    if one[:count] == other[:count]:
        return None
    differences = list(map(operator.sub, array.array("h", one[:count]), array.array("h", other[:count])))
    if max(differences) <= most and min(differences) >= -most:
        return None
    return next(i for i, difference in enumerate(differences) if abs(difference) > most) // 2


def is_note_on(message):
    return message[0] & 0xF0 == 0x90 and message[2] > 0


def notes_sent(score):
    """How many note ons the cells of the score ask for, by key; a chord has four, as far as there are keys."""
    last = {row: max((c for c, cell in enumerate(notes) if cell > -1), default=-1) for row, (notes, _) in enumerate(score.rows)}
    end = 0
    for row in range(ROWS):
        end = last[row] + 1 if last[row] > end else end
    sent = collections.Counter()
    for row, (notes, instruments) in enumerate(score.rows):
        for column, (cell, instrument) in enumerate(zip(notes, instruments)):
            if not 0 <= cell < 1000 or column > end:
                continue
            if instrument >= 128:
                sent[9, instrument - 93] += 1
                continue
            # The reader puts field i into entry i, and the mark of a column is the entry after it.
            marks = score.marks[row] if row < MUSIC_ROWS else []
            has_mark = column + 1 < len(marks) and marks[column + 1] == 1
            for interval in (0, 3, 7, 12) if has_mark else (0,):
                if 127 - cell + interval > 127:
                    break
                sent[row, 127 - cell + interval] += 1
    return sent


class Comparison:
    """The errors of one score. `spoil` may change the messages of the MIDI file before it is compared."""

    def __init__(self, convert, folder, score, rate, spoil=None):
        self.rate, self.score, self.problems, self.errors = rate, score, [], []
        midi, wav, raw = folder / "a.mid", folder / "a.wav", folder / "b.raw"
        (folder / "a.sng").write_text(score.text(), newline="")
        told(convert, "--soundfont", FONT, "--rate", rate, folder / "a.sng", "-o", wav)
        told(convert, folder / "a.sng", "-o", midi)
        if spoil:
            events = MidiEvents(midi.read_bytes())
            midi.write_bytes(events.file_of(spoil(events)))
        told("fluidsynth", "-q", "-ni", "-F", raw, "-T", "raw", "-O", "s16", "-r", rate, FONT, midi)
        self.ours, self.theirs = sound_of(wav), raw.read_bytes()
        self.compare(midi.read_bytes())

    def compare(self, file):
        midi, rate = MidiEvents(file), self.rate
        messages = midi.messages
        sent = collections.Counter((m[0] & 0x0F, m[1]) for _, m in messages if is_note_on(m))
        missing = notes_sent(self.score) - sent
        more = sent - notes_sent(self.score)
        if missing or more:
            self.problems.append(f"{missing.total()} notes are missing, {more.total()} are too many")
        times = column_times(self.score.tempo, COLUMNS + 3)
        ns_of_tick = midi.tempo_us * 1000 / midi.division
        in_program = []
        for tick, message in messages:
            time = min(times, key=lambda column, tick=tick: abs(column - tick * ns_of_tick))
            if abs(time - tick * ns_of_tick) > MOST_TICK_NS:
                self.problems.append(f"an event at tick {tick} is in no column")
            in_program.append((block_of_time(time, rate), message))
        # Drums end with the file, but not in the program; the sound is compared up to there.
        end = in_program[-1][0] if in_program else 0
        explained, in_file = played(FONT, rate, file, int(midi.end * ns_of_tick / 1e9 * rate / BLOCK))
        self.check("the converter", self.ours, rendered(FONT, rate, in_program, end), 0)
        self.check("fluidsynth -F", self.theirs, explained, DITHER)
        in_program = [(block, message[0] & 0x0F, message[1]) for block, message in in_program if is_note_on(message)]
        if [note[1:] for note in in_program] != [note[1:] for note in in_file]:
            self.problems.append("the player sends other notes")
        self.errors = [abs(one[0] - other[0]) * BLOCK * 1000 / rate for one, other in zip(in_program, in_file)]

    def check(self, name, sound, explained, most):
        differs = first_difference(explained, sound, most)
        if differs is not None:
            self.problems.append(f"the sound of {name} is not that of the messages from {differs / self.rate:.3f} s on")


def without_a_note(events):
    """The messages without the note on in the middle."""
    ons = [i for i, (_, message) in enumerate(events.messages) if is_note_on(message)]
    return [event for i, event in enumerate(events.messages) if i != ons[len(ons) // 2]]


def with_a_late_note(events):
    """The same note on 2 ms later."""
    ons = [i for i, (_, message) in enumerate(events.messages) if is_note_on(message)]
    late = round(2000 * events.division / events.tempo_us)
    return [(tick + late if i == ons[len(ons) // 2] else tick, message) for i, (tick, message) in enumerate(events.messages)]


def compared(convert, seed, rate, spoil=None):
    with tempfile.TemporaryDirectory() as name:
        return Comparison(convert, pathlib.Path(name), RandomScore(seed), rate, spoil)


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--count", type=int, default=20)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--rate", type=int, default=RATE)
    options = arguments.parse_args()
    convert = options.build.resolve() / "bin" / "velorin-convert"
    bad, errors = [], []
    for spoil in (without_a_note, with_a_late_note):
        if not compared(convert, options.seed, options.rate, spoil).problems:
            bad.append(f"the check does not notice a score {spoil.__name__.replace('_', ' ')}")
    for seed in range(options.seed, options.seed + options.count):
        comparison = compared(convert, seed, options.rate)
        bad += [f"score {seed}: {problem}" for problem in comparison.problems]
        errors += comparison.errors
    print(*bad, sep="\n")
    late = sum(error > MOST_MS for error in errors)
    print(f"{options.count} scores, {len(errors)} notes: {len(bad)} problems, {late} onsets off by more than {MOST_MS} ms, "
          f"{sum(error > 0 for error in errors)} off by a block, the largest error is {max(errors, default=0):.2f} ms")
    return 1 if bad or late else 0


if __name__ == "__main__":
    sys.exit(main())
