"""Finds the onsets of beats and the pitches of notes in a recording at 44,100 frames per second."""

import array
import math

RATE = 44100


def samples(path, first_frame=0, frames=None):
    """The left channel of a raw 16-bit stereo recording, starting at a frame."""
    with open(path, "rb") as file:
        file.seek(4 * first_frame)
        data = file.read(-1 if frames is None else 4 * frames)
    both = array.array("h", data[:len(data) // 4 * 4])
    return both[0::2]


def frames_in(path):
    return path.stat().st_size // 4


def key_to_hz(key):
    return 440.0 * 2.0 ** ((key - 69) / 12.0)


def strength(sound, frequency):
    """The level of one frequency in the sound, by Goertzel's filter with a raised cosine window."""
    count = len(sound)
    turn = 2.0 * math.pi / count
    factor = 2.0 * math.cos(2.0 * math.pi * frequency / RATE)
    before = last = 0.0
    for i, value in enumerate(sound):
        before, last = last, value * (0.5 - 0.5 * math.cos(turn * i)) + factor * last - before
    return math.sqrt(max(0.0, before * before + last * last - factor * before * last)) / count


def key_of(sound, lowest=48, highest=84):
    """The MIDI key with the highest level. Right for instruments whose fundamental is their loudest partial."""
    return max(range(lowest, highest + 1), key=lambda key: strength(sound, key_to_hz(key)))


def has_key(sound, key, share=0.25):
    """True if a key sounds: it has this share of the highest level, and more than its neighbours."""
    here = strength(sound, key_to_hz(key))
    beside = max(strength(sound, key_to_hz(key - 1)), strength(sound, key_to_hz(key + 1)))
    loudest = max(strength(sound, key_to_hz(other)) for other in range(48, 85))
    return here > beside and here > share * loudest


def melody_of(sound, keys, shortest_s=0.06):
    """The keys that sound one after the other, of those given. It does not matter how late each of them comes."""
    step = RATE // 50
    level = 0.1 * loudness(sound)
    heard = []
    for frame in range(0, len(sound) - 2048, step):
        piece = sound[frame:frame + 2048]
        key = max(keys, key=lambda key: strength(piece, key_to_hz(key))) if loudness(piece) > level else None
        if heard and heard[-1][0] == key:
            heard[-1][1] += step
        else:
            heard.append([key, step])
    long = [key for key, frames in heard if key is not None and frames >= shortest_s * RATE]
    return [key for i, key in enumerate(long) if i == 0 or key != long[i - 1]]


def change_of_key(sound, before, after, start, end):
    """The first frame from `start` to `end` at which the second key is louder than the first, to 10 ms; or None."""
    for frame in range(start, end, RATE // 100):
        piece = sound[frame:frame + 2048]
        if len(piece) == 2048 and strength(piece, key_to_hz(after)) > strength(piece, key_to_hz(before)):
            return frame
    return None


def loudness(sound):
    return max(map(abs, sound), default=0)


def is_quiet(sound, peak=40):
    return loudness(sound) < peak


def first_sound(sound, peak=40):
    """The first frame above the peak, or None."""
    step = 4096
    for start in range(0, len(sound), step):
        piece = sound[start:start + step]
        if loudness(piece) > peak:
            return start + next(i for i, value in enumerate(piece) if abs(value) > peak)
    return None


def onsets(sound, apart_s=0.05, share=0.3):
    """The frames at which the sound rises out of silence. Equal beats are found at the same point of each."""
    level = share * loudness(sound)
    found = []
    quiet_until = -1
    for i, value in enumerate(sound):
        if abs(value) > level and i > quiet_until:
            found.append(i)
            quiet_until = i + int(apart_s * RATE)
    return found


class Columns:
    """The sound of a song by columns of the score.

    A busy machine plays a column, and all after it, later than its time. Each note that is found tells how late it is.
    Notes are to be looked for in their order.
    """

    LATEST_S = 0.4  # from one note to the next

    def __init__(self, sound, column_s):
        self.sound, self.column_s = sound, column_s
        self.late = {0: 0}  # frames, from that column on

    def frame(self, column):
        late = self.late[max(known for known in self.late if known <= column)]
        return int(column * self.column_s * RATE) + late

    def at(self, column, length=4096):
        return self.sound[self.frame(column):self.frame(column) + length]

    def finds(self, column, is_heard, length=4096):
        """Whether a piece from this column on, or from a little later, sounds as it must."""
        first = self.frame(column)
        for frame in range(first, first + int(self.LATEST_S * RATE), RATE // 50):
            piece = self.sound[frame:frame + length]
            if len(piece) == length and is_heard(piece):
                self.late[column] = frame - int(column * self.column_s * RATE)
                return True
        return False
