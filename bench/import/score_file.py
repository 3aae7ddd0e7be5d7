"""Reads the notes that a score sounds, in seconds. It shares nothing with the program's own reader."""

import dataclasses

ROWS = 13
MELODIC_ROWS = 8
HELD = 1000
FIRST_DRUM = 128
CHORD = (3, 7, 12)  # half tones above a marked note, as a score is played after loading


@dataclasses.dataclass
class Sounded:
    onset: float  # seconds; column 0 begins at 0
    key: int
    is_drum: bool


@dataclasses.dataclass
class PlayedScore:
    notes: list     # of Sounded, by onset
    column: float   # seconds of a column
    columns: int    # up to the end of its last note


def numbers(line):
    return [int(field) for field in line.split(",")]


def marks_in(lines):
    """The chord marks as pairs (row, column). Field c + 1 of a row's line is the mark that sounds in column c."""
    marks = set()
    for row, line in enumerate(lines[:MELODIC_ROWS]):
        marks.update((row, field - 1) for field, mark in enumerate(numbers(line)) if mark == 1)
    return marks


def keys_of(row, cell, instrument, is_marked):
    """The keys that a start cell sounds, and whether they are drums."""
    if instrument >= FIRST_DRUM:
        return [instrument - 93], True
    key = 127 - cell
    if not is_marked:
        return [key], row == 9
    return [key] + [key + interval for interval in CHORD if key + interval <= 127], False


def read(path):
    lines = path.read_bytes().decode("latin-1").split("\r\n")
    column_seconds = 12 / int(lines[2 * ROWS])
    marks = marks_in(lines[2 * ROWS + 3:])
    notes, columns = [], 0
    for row in range(ROWS):
        cells, instruments = numbers(lines[2 * row]), numbers(lines[2 * row + 1])
        for column, (cell, instrument) in enumerate(zip(cells, instruments)):
            if cell >= 0:
                columns = max(columns, column + 1)
            if 0 <= cell < HELD:
                keys, is_drum = keys_of(row, cell, instrument, (row, column) in marks)
                notes += [Sounded(column * column_seconds, key, is_drum) for key in keys]
    notes.sort(key=lambda note: note.onset)
    return PlayedScore(notes, column_seconds, columns)
