"""Decides from a MIDI file alone whether its music fits a score.

A score has a steady grid, and rows for eight melodic notes and five drums at once. A file fits if all of these hold:
- one tempo, or tempos within 1 % of each other, covers 95 % of the note onsets;
- 90 % of the onsets lie within 15 ms of a grid of that tempo: quarter notes divided by 2, 3, 4, 6, 8 or 12, but no
  finer than 40 ms, the shortest column of a score;
- at most 1 % of the notes begin while eight other melodic notes sound, or with more than four other drums. A note
  counts as ended 20 ms before its end, because players hold a note a little into the next one.
"""

import bisect
import heapq

import numpy

TOLERANCE = 0.015
SHORTEST = 0.040
DIVISIONS = (2, 3, 4, 6, 8, 12)
STEADY = 0.95
ON_GRID = 0.90
TOO_MANY = 0.01


def steady_tempo(song):
    """Seconds of a quarter note of the commonest tempo, and the share of onsets that it covers."""
    if not song.tempos:
        return 0.5, 0.0
    times = [time for time, _ in song.tempos]
    counts = {}
    for note in song.notes:
        tempo = song.tempos[max(0, bisect.bisect_right(times, note.onset + 1e-9) - 1)][1]
        counts[tempo] = counts.get(tempo, 0) + 1
    best = max(counts, key=counts.get)
    near = sum(count for tempo, count in counts.items() if abs(tempo / best - 1) <= 0.01)
    return best, near / len(song.notes)


def share_on_grid(onsets, column):
    """The largest share of onsets within the tolerance of a grid with this column, over all places of its start."""
    phases = numpy.sort(onsets % column)
    around = numpy.concatenate([phases, phases + column])
    width = numpy.searchsorted(around, around[:len(phases)] + 2 * TOLERANCE, side="right") - numpy.arange(len(phases))
    return min(1.0, float(width.max()) / len(phases))


def best_grid(song):
    """(share of onsets on the grid, seconds of a column): the coarsest grid whose share is within 2 % of the best."""
    quarter, _ = steady_tempo(song)
    onsets = numpy.array([note.onset for note in song.notes])
    columns = [quarter / division for division in DIVISIONS if quarter / division >= SHORTEST]
    shares = [(share_on_grid(onsets, column), column) for column in columns] or [(0.0, SHORTEST)]
    best = max(shares)[0]
    return next(pair for pair in shares if pair[0] >= best - 0.02)


def crowded(song):
    """The share of notes for which there is no row: eight melodic notes sound already, or five drums begin with it."""
    ends, drums, over = [], [], 0
    for note in song.notes:
        if note.is_drum:
            drums = [onset for onset in drums if note.onset - onset < 0.020] + [note.onset]
            over += len(drums) > 5
            continue
        while ends and ends[0] <= note.onset:
            heapq.heappop(ends)
        over += len(ends) >= 8
        heapq.heappush(ends, max(note.end - 0.020, note.onset + 0.001))
    return over / len(song.notes)


def judge(song):
    """Whether the file fits, and the reason if not."""
    steady, (on_grid, column), many = steady_tempo(song)[1], best_grid(song), crowded(song)
    if steady < STEADY:
        return False, f"tempo steady for {100 * steady:.0f} % of the notes"
    if on_grid < ON_GRID:
        return False, f"{100 * on_grid:.0f} % of the onsets on the grid"
    if many > TOO_MANY:
        return False, f"too many at once for {100 * many:.0f} % of the notes"
    return True, f"{100 * on_grid:.0f} % on columns of {1000 * column:.0f} ms"
