"""Does the tasks of a user's first hour with mouse and keys, and counts them. Checks what was made, and that an MP3 that
sounds right takes at most eight clicks from the empty sheet on, a melody of eight notes included."""

import listen
import score_text
from desk import Desk, check, run
from newcomer import (BAR, BASS_BEATS, COLUMN_S, COPY_TO, FLUTE, MELODY, SNARE, SNARE_BEATS, do_all)
from recorded import decoded

MOST_CLICKS = 8
STEREO_44100 = (44100, 2)
TAIL_S = 4  # at most, for the last note to ring out
GUITAR, BASS_DRUM = 24, 128
NOTE_LEVEL = 700  # of the loudness: a note of the melody begins at 1,600 or more


def format_of(mp3):
    """The sample rate and the number of channels in the first header of layer III."""
    data = mp3.read_bytes()
    if data[:3] == b"ID3":
        size = (data[6] << 21) + (data[7] << 14) + (data[8] << 7) + data[9]
        data = data[10 + size:]
    word = int.from_bytes(data[:4], "big")
    check(word >> 17 & 0x7FF3 in (0x7FF1,), f"no header of layer III: {word:08x}")
    rates = {3: (44100, 48000, 32000), 2: (22050, 24000, 16000)}[word >> 19 & 3]
    return rates[word >> 10 & 3], 1 if word >> 6 & 3 == 3 else 2


def check_sound(desk, mp3, slower=1):
    """The length, and the pitch of each note; at half speed an octave lower."""
    sound = decoded(mp3, desk.folder)
    first = listen.first_sound(sound, NOTE_LEVEL)  # the note that was drawn last may still ring at the start
    check(first is not None, f"{mp3.name} is silent")
    sound = sound[max(0, first - 100):]
    song_s = slower * COLUMN_S * (BAR * (len(MELODY) - 1) + 1)
    check(song_s - 0.2 < len(sound) / listen.RATE < song_s + TAIL_S,
          f"{mp3.name} has {len(sound) / listen.RATE:.2f} s instead of {song_s:.2f} s and its end")
    columns = listen.Columns(sound, COLUMN_S * slower)

    def key_of(piece):
        return listen.key_of(piece, lowest=36)
    for i, pitch in enumerate(MELODY):
        place = BAR * i + 0.25
        expected = 127 - pitch - (12 if slower == 2 else 0)
        check(columns.finds(place, lambda piece, key=expected: key_of(piece) == key, 4096 * slower),
              f"note {i} in {mp3.name} is key {key_of(columns.at(place))} instead of {expected}")


def check_score(file, has_marks):
    notes, marks = score_text.runs(file.read_bytes())
    expected = {(0, BAR * i): (pitch, 1, FLUTE) for i, pitch in enumerate(MELODY)}
    expected[0, COPY_TO] = (MELODY[0], 1, FLUTE)
    expected.update({(8, column): (55, 1, BASS_DRUM) for column in (*BASS_BEATS, COPY_TO)})
    expected.update({(10, column): (55, 1, SNARE) for column in SNARE_BEATS})
    check(notes == expected, f"{file.name}: {expected} were drawn, but {notes} were saved")
    check(bool(marks) == has_marks, f"{file.name}: the chord marks {marks} were saved")


def check_counts(counts):
    told = {count.name: count.hand() for count in counts}
    check(told["start to first note"] == 1, "the first note takes more than a click")
    clicks = sum(told[task] for task in ("start to first note", "melody of 8 notes", "MP3 that sounds right"))
    check(clicks <= MOST_CLICKS, f"an MP3 takes {clicks} clicks")


def test(build):
    with Desk(build, manager=True) as desk:
        counts, files = do_all(desk, short=True)
        check_counts(counts)
        check(format_of(files["mp3"]) == STEREO_44100, f"the MP3 has {format_of(files['mp3'])}")
        check_sound(desk, files["mp3"])
        check(files["wav"].read_bytes()[:4] == b"RIFF", "there is no WAV")
        check_score(files["score"], has_marks=True)
    with Desk(build, manager=True) as desk:
        counts, files = do_all(desk, short=False)
        check_sound(desk, files["first mp3"], slower=2)
        check_sound(desk, files["mp3"])
        check(files["wav"].read_bytes()[:4] == b"RIFF", "there is no WAV")
        check_score(files["score"], has_marks=False)


run(test)
