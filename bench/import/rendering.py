"""Compares two renderings of a song by ear's measures: when something begins, and which of the twelve tones sound.

Both are taken from the first 60 seconds, from frames of 4096 samples every 441 at 22,050 Hz:
- onset strength of frame t: the sum over all bins of max(0, log(1 + 10 |X(t)|) - log(1 + 10 |X(t - 1)|)), smoothed over
  five frames (0.1 s). The similarity is the correlation coefficient of the two.
- chroma of frame t: |X(t)| of the bins from 55 to 5,000 Hz, added up for each of the twelve tones, less the weakest
  of them, which takes out the noise of drums. The similarity is the mean over all frames of the cosine of the angle
  between the two. A frame in which one is silent counts 0, one in which both are silent does not count.

The rendering of a score is laid over that of the file with the ratio and the offset that the notes gave. Then it is
shifted by up to 0.5 s to where the onset strengths agree best, because a rendered score begins with a silent column.
"""

import wave

import numpy

RATE = 22050
HOP = 441
WINDOW = 4096
SECONDS = 60
MOST_SHIFT = 25  # frames


def samples_of(path):
    with wave.open(str(path)) as sound:
        count = min(sound.getnframes(), (SECONDS + 30) * RATE)
        data = numpy.frombuffer(sound.readframes(count), dtype="<i2").reshape(-1, sound.getnchannels())
        return data.mean(axis=1) / 32768


def tone_of_bin():
    """The tone [0, 12) of each bin of a spectrum, -1 outside 55 to 5,000 Hz."""
    hertz = numpy.arange(WINDOW // 2 + 1) * RATE / WINDOW
    tones = numpy.full(len(hertz), -1)
    heard = (hertz >= 55) & (hertz <= 5000)
    tones[heard] = numpy.round(69 + 12 * numpy.log2(hertz[heard] / 440)).astype(int) % 12
    return tones


def features_of(path):
    """Frames of a rendering: columns 0 to 11 the chroma, 12 the onset strength."""
    samples = samples_of(path)
    frames = max(1, 1 + (len(samples) - WINDOW) // HOP)
    samples = numpy.pad(samples, (0, max(0, WINDOW - len(samples))))
    window = numpy.hanning(WINDOW)
    fold = numpy.stack([tone_of_bin() == tone for tone in range(12)], axis=1).astype(float)
    features, before = numpy.zeros((frames, 13)), numpy.zeros(WINDOW // 2 + 1)
    for frame in range(frames):
        spectrum = numpy.abs(numpy.fft.rfft(window * samples[frame * HOP:frame * HOP + WINDOW]))
        loudness = numpy.log1p(10 * spectrum)
        tones = spectrum @ fold
        features[frame, :12] = tones - tones.min()
        features[frame, 12] = numpy.maximum(0, loudness - before).sum()
        before = loudness
    features[:, 12] = numpy.convolve(features[:, 12], numpy.hanning(7)[1:-1] / 3, mode="same")
    return features


def laid_over(parts, frames):
    """The features of a score's parts on the file's frames; a part is (features, ratio, offset in seconds)."""
    result = numpy.zeros((frames, 13))
    for features, ratio, offset in parts:
        start = max(0, int(offset * RATE / HOP))
        place = (numpy.arange(start, frames) - offset * RATE / HOP) / ratio
        own = numpy.arange(len(features))
        for column in range(13):
            result[start:, column] = numpy.interp(place, own, features[:, column], left=0, right=0)
    return result


def shifted(features, by):
    moved = numpy.roll(features, by, axis=0)
    if by > 0:
        moved[:by] = 0
    elif by < 0:
        moved[by:] = 0
    return moved


def onset_similarity(a, b):
    if a[:, 12].std() == 0 or b[:, 12].std() == 0:
        return 0.0
    return float(numpy.corrcoef(a[:, 12], b[:, 12])[0, 1])


def chroma_similarity(a, b):
    first, second = numpy.linalg.norm(a[:, :12], axis=1), numpy.linalg.norm(b[:, :12], axis=1)
    quiet = 0.001 * max(first.max(), second.max(), 1e-9)
    heard = (first > quiet) | (second > quiet)
    both = (first > quiet) & (second > quiet)
    cosines = (a[both, :12] * b[both, :12]).sum(axis=1) / (first[both] * second[both])
    return float(cosines.sum() / max(1, heard.sum()))


def similarity(file, parts):
    """Onset and chroma similarity of a file's features and those of the parts of its score."""
    file = file[:SECONDS * RATE // HOP]
    score = laid_over(parts, len(file) + MOST_SHIFT)
    best = max((shifted(score, by)[:len(file)] for by in range(-MOST_SHIFT, MOST_SHIFT + 1)),
               key=lambda features: onset_similarity(file, features))
    return onset_similarity(file, best), chroma_similarity(file, best)
