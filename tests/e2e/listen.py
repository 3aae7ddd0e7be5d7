"""Finds out what sounded: the onsets of beats and the pitches of notes in a recording of 44,100 frames a second."""

import array
import math

RATE = 44100


def samples(path, first_frame=0, frames=None):
    """The left side of a raw 16-bit stereo recording, from a frame on."""
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
    """How much of one frequency is in the sound, by Goertzel's filter under a raised cosine."""
    count = len(sound)
    turn = 2.0 * math.pi / count
    factor = 2.0 * math.cos(2.0 * math.pi * frequency / RATE)
    before = last = 0.0
    for i, value in enumerate(sound):
        before, last = last, value * (0.5 - 0.5 * math.cos(turn * i)) + factor * last - before
    return math.sqrt(max(0.0, before * before + last * last - factor * before * last)) / count


def key_of(sound, lowest=48, highest=84):
    """The MIDI key that sounds, if its ground tone is its strongest, as with pipes: the strongest one."""
    return max(range(lowest, highest + 1), key=lambda key: strength(sound, key_to_hz(key)))


def has_key(sound, key, share=0.25):
    """Whether a key sounds: as strong as this share of the strongest key, and more than its neighbours."""
    here = strength(sound, key_to_hz(key))
    beside = max(strength(sound, key_to_hz(key - 1)), strength(sound, key_to_hz(key + 1)))
    loudest = max(strength(sound, key_to_hz(other)) for other in range(48, 85))
    return here > beside and here > share * loudest


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
    """The frames at which the sound becomes loud out of quiet: the same place in each of a row of equal beats."""
    level = share * loudness(sound)
    found = []
    quiet_until = -1
    for i, value in enumerate(sound):
        if abs(value) > level and i > quiet_until:
            found.append(i)
            quiet_until = i + int(apart_s * RATE)
    return found
