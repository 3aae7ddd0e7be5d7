"""Measures sound: when notes begin, and which keys sound at a moment."""

import math

RATE_HZ = 44100


def key_to_hz(key):
    """The pitch of a MIDI key, equal temperament on A = 440 Hz, key 69."""
    return 440.0 * 2.0 ** ((key - 69) / 12.0)


def strength(samples, start, length, hz, rate=RATE_HZ):
    """The amplitude of one frequency in a window of the samples (Goertzel with a Hann window)."""
    coefficient = 2.0 * math.cos(2.0 * math.pi * hz / rate)
    before = last = 0.0
    for index in range(length):
        weight = 0.5 - 0.5 * math.cos(2.0 * math.pi * index / length)
        last, before = samples[start + index] * weight + coefficient * last - before, last
    power = last * last + before * before - coefficient * last * before
    return 4.0 * math.sqrt(max(power, 0.0)) / length


def strongest_key(samples, start, keys, length=8192, rate=RATE_HZ):
    """Which of the keys sounds strongest in a window, with its first two overtones counted in."""
    def score(key):
        hz = key_to_hz(key)
        return sum(strength(samples, start, length, hz * n, rate) / n for n in (1, 2) if hz * n < rate / 2)
    return max(keys, key=score)


def level(samples, start, length):
    """The loudness of a window: the root of the mean square."""
    return math.sqrt(sum(value * value for value in samples[start:start + length]) / max(length, 1))


def onsets(samples, rate=RATE_HZ, threshold=0.02, hop=64, rest_s=0.06):
    """Frames at which the sound gets suddenly louder: rises of the short-time peak over what it was 20 ms before."""
    peaks = [max((abs(value) for value in samples[at:at + hop]), default=0.0)
             for at in range(0, len(samples) - hop, hop)]
    back = max(1, int(0.02 * rate / hop))
    found = []
    for index in range(back, len(peaks)):
        floor = max(peaks[index - back:index])
        rises = peaks[index] > threshold and peaks[index] > floor * 1.6
        if rises and (not found or index * hop - found[-1] > rest_s * rate):
            found.append(index * hop)
    return found
