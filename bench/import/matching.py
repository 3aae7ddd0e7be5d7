"""Finds the notes of a MIDI file again in another rendering of it: by key, and by onset within a tolerance.

First the other rendering is laid over the file: its times are multiplied by one ratio and shifted by one offset,
because a score's tempo is a whole number and its first note may be in its first column. Then each key is matched by
itself. Notes of one key that begin within 10 ms of each other sound as one and count once, on both sides.

A second, looser matching follows the tempo of the file: every three seconds of the other rendering may move by
themselves. It also takes another drum for one that is not among the 47 drums of a score. It shows which notes are
there at all.
"""

import dataclasses

import numpy

UNISON = 0.010
LEAST_TOLERANCE = 0.060
FARTHEST_RATIO = 0.03   # more than any rounding of a tempo
FARTHEST_OFFSET = 30.0
FIRST_SECONDS = 20.0    # the offset is found from these
FIRST_NOTES = 200       # and from about so many of their notes
RATIOS = 21             # that are tried
FOLLOWED_SECONDS = 3.0
FARTHEST_STEP = 1.0     # seconds that these may move beside those before
SCORE_DRUMS = range(35, 82)


@dataclasses.dataclass
class Matching:
    recall: float      # share of the file's notes that the other rendering has
    precision: float   # share of the other rendering's notes that the file has
    ratio: float       # by which its times were multiplied; of several scores the mean
    distances: object  # numpy array, seconds, of the matched notes
    lost: dict         # onsets of the file's notes that the other lacks, for each (key, is drum)
    followed: float = 0.0  # as recall, by the looser matching


def by_key(notes):
    """Onsets of each (key, is drum), without unisons."""
    sounded = {}
    for note in sorted(notes, key=lambda note: note.onset):
        onsets = sounded.setdefault((note.key, note.is_drum), [])
        if not onsets or note.onset - onsets[-1] > UNISON:
            onsets.append(note.onset)
    return {key: numpy.array(onsets) for key, onsets in sounded.items()}


def pairs_of(a, b, tolerance):
    """Indices of matched onsets of two sorted arrays. There is no matching with more pairs."""
    i, j, pairs = 0, 0, []
    while i < len(a) and j < len(b):
        if abs(a[i] - b[j]) <= tolerance:
            pairs.append((i, j))
            i, j = i + 1, j + 1
        elif a[i] < b[j]:
            i += 1
        else:
            j += 1
    return pairs


def all_pairs(file, other, tolerance):
    """Matched onsets, a row for each: (of the file, of the other rendering)."""
    found = [(file[key][i], onsets[j]) for key, onsets in other.items() if key in file
             for i, j in pairs_of(file[key], onsets, tolerance)]
    return numpy.array(found).reshape(-1, 2)


def cut(sounded, first, last):
    return {key: onsets[(onsets >= first) & (onsets < last)] for key, onsets in sounded.items()}


def thinned(sounded):
    """Every note of few, and of many every second, third and so on."""
    step = max(1, count(sounded) // FIRST_NOTES)
    return {key: onsets[::step] for key, onsets in sounded.items()}


def scaled(sounded, ratio, offset):
    return {key: onsets * ratio + offset for key, onsets in sounded.items()}


def votes(file, other, ratio, expected, farthest=FARTHEST_OFFSET, preference=0.1):
    """The weight of the commonest offset between notes of one key, and the offset; of two verses the near one."""
    differences = [(file[key][:, None] - ratio * onsets[None, :]).ravel()
                   for key, onsets in other.items() if key in file]
    if not differences:
        return 0, 0.0
    near = numpy.concatenate(differences)
    near = near[numpy.abs(near - expected) < farthest]
    if len(near) == 0:
        return 0, 0.0
    near.sort()
    last = numpy.searchsorted(near, near + 0.03, side="right")
    counts = (last - numpy.arange(len(near))) * (1 - preference * numpy.abs(near - expected) / farthest)
    best = int(numpy.argmax(counts))
    return float(counts[best]), float(numpy.median(near[best:last[best]]))


def ends(sounded):
    onsets = numpy.concatenate(list(sounded.values()))
    return onsets.min(), onsets.max()


def stretched(file, other, tolerance):
    """Ratio and offset if the other rendering has the file's length times any factor."""
    (first, last), (own_first, own_last) = ends(file), ends(other)
    ratio = (last - first) / max(0.001, own_last - own_first)
    offset = first - ratio * own_first
    near, start = lay_over(file, scaled(other, ratio, offset), tolerance)
    return ratio * near, offset * near + start


def lay_over(file, other, tolerance, expected=0.0):
    """Ratio and offset of the other rendering's times: from its first seconds, and then from more and more of it."""
    first, end = ends(other)
    end += 0.001
    beginning = thinned(cut(other, first, first + FIRST_SECONDS))
    near = cut(file, first + expected - FARTHEST_OFFSET, first + expected + FIRST_SECONDS + FARTHEST_OFFSET)
    ratios = 1 + numpy.linspace(-FARTHEST_RATIO, FARTHEST_RATIO, RATIOS)
    found = [(*votes(near, beginning, ratio, expected + first * (1 - ratio)), -abs(ratio - 1), ratio)
             for ratio in ratios]
    _, offset, _, ratio = max(found, key=lambda vote: (vote[0], vote[2]))
    seconds = FIRST_SECONDS
    while True:
        pairs = all_pairs(file, scaled(cut(other, first, first + seconds), ratio, offset), tolerance)
        if len(pairs) >= 8:
            before = (pairs[:, 1] - offset) / ratio
            for _ in range(2):  # the second time without the pairs that are far off
                slope, start = numpy.polyfit(before, pairs[:, 0], 1)
                near_line = numpy.abs(before * slope + start - pairs[:, 0]) <= tolerance / 2
                if near_line.sum() >= 8:
                    before, pairs = before[near_line], pairs[near_line]
            if abs(slope - 1) <= 2 * FARTHEST_RATIO:
                ratio, offset = slope, start
        if first + seconds >= end:
            return float(ratio), float(offset)
        seconds *= 1.5


def followed(file, other):
    """The other rendering's times if every few seconds of it are moved to where most of their notes are in the file."""
    first, end = ends(other)
    step, times, shifts, shift = FOLLOWED_SECONDS / 2, [], [], 0.0
    for start in numpy.arange(first, end + 0.001, step):
        part = cut(other, start, start + FOLLOWED_SECONDS)
        near = cut(file, start + shift - FARTHEST_STEP, start + shift + FOLLOWED_SECONDS + FARTHEST_STEP)
        weight, found = votes(near, part, 1.0, shift, FARTHEST_STEP, 0.5)
        if weight >= max(3, 0.4 * count(part)):
            shift = found
        times.append(start + step)
        shifts.append(shift)
    return {key: numpy.sort(onsets + numpy.interp(onsets, times, shifts)) for key, onsets in other.items()}


def replaced_drums(file, lost, other, tolerance):
    """How many of the file's drums that a score cannot have are played by another drum."""
    missing = numpy.sort(numpy.concatenate([[], *(onsets for (key, is_drum), onsets in lost.items()
                                                  if is_drum and key not in SCORE_DRUMS)]))
    spare = [[]]
    for key, onsets in other.items():
        if key[1]:
            used = {j for _, j in pairs_of(file.get(key, ()), onsets, tolerance)}
            spare.append([onset for j, onset in enumerate(onsets) if j not in used])
    return len(pairs_of(missing, numpy.sort(numpy.concatenate(spare)), tolerance))


def count(sounded):
    """The number of notes, at least 1."""
    return max(1, sum(map(len, sounded.values())))


def matched(file, other, tolerance, ratio):
    pairs = all_pairs(file, other, tolerance)
    lost = {}
    for key, onsets in file.items():
        kept = {i for i, _ in pairs_of(onsets, other.get(key, ()), tolerance)}
        lost[key] = [onset for i, onset in enumerate(onsets) if i not in kept]
    distances = numpy.abs(pairs[:, 0] - pairs[:, 1])
    return Matching(len(pairs) / count(file), len(pairs) / count(other), ratio, distances, lost)


def tolerance_for(column):
    """A note half way between two columns may be in either, so the millisecond decides nothing."""
    return max(LEAST_TOLERANCE, column / 2 + 0.001)


def joined(parts):
    together = {}
    for part in parts:
        for key, onsets in part.items():
            together.setdefault(key, []).append(onsets)
    return {key: numpy.sort(numpy.concatenate(onsets)) for key, onsets in together.items()}


def match_scores(file_notes, scores):
    """Matches a file with the scores made of it, which follow one another; each is laid over by itself.

    Returns the matching and for each score its (ratio, offset).
    """
    file, strict, loose, places, expected = by_key(file_notes), [], [], [], 0.0
    tolerance = tolerance_for(max((score.column for score in scores), default=0.0))
    for score in scores:
        part = by_key(score.notes)
        ratio, offset = lay_over(file, part, tolerance, expected) if part else (1.0, expected)
        places.append((ratio, offset))
        expected = offset + ratio * score.columns * score.column
        if part:
            strict.append(scaled(part, ratio, offset))
            loose.append(followed(file, strict[-1]))
    result = matched(file, joined(strict), tolerance, float(numpy.mean([ratio for ratio, _ in places])))
    other = joined(loose)
    followed_match = matched(file, other, tolerance, result.ratio)
    replaced = replaced_drums(file, followed_match.lost, other, tolerance)
    result.followed = followed_match.recall + replaced / count(file)
    return result, places


def match_at(file_notes, scores, places):
    """The recall of scores whose (ratio, offset) are known."""
    parts = [scaled(by_key(score.notes), *place) for score, place in zip(scores, places)]
    tolerance = tolerance_for(max(score.column for score in scores))
    return matched(by_key(file_notes), joined(parts), tolerance, 1.0).recall


def match_midi(file_notes, other_notes, column):
    """Matches a file with what another program wrote, also if it wrote another tempo; the better of both counts."""
    file, other, tolerance = by_key(file_notes), by_key(other_notes), tolerance_for(column)
    if not other:
        return Matching(0.0, 0.0, 1.0, numpy.zeros(0), file)
    found = [lay_over(file, other, tolerance), stretched(file, other, tolerance)]
    return max((matched(file, scaled(other, ratio, offset), tolerance, ratio) for ratio, offset in found),
               key=lambda matching: matching.recall)
