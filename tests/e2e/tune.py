"""A song with known onsets of notes and beats, and checks of how it sounds."""

import statistics

import listen
from desk import check, wait_until
from score_text import Score

TEMPO = 120
COLUMN_S = 12 / TEMPO
OCARINA, WOOD_BLOCK = 79, 169
BEATS, BEAT_COLUMNS = 10, 2

# A busy machine may wake the program late for a column. How late it is on a quiet one is measured in bench/.
WAKING_S = 0.02


def melody_and_beats(melody, first_beat, note_columns=2):
    """The melody, silence, then ten beats in every second column."""
    score = Score(TEMPO)
    for i, pitch in enumerate(melody):
        score.note(0, note_columns * i, pitch, note_columns, OCARINA)
    for i in range(BEATS):
        score.note(8, first_beat + BEAT_COLUMNS * i, 57, 1, WOOD_BLOCK)
    score.row_instruments[0] = OCARINA
    score.row_instruments[8] = WOOD_BLOCK
    return score


def late_beats(sound, first_beat):
    """The error of each beat's distance from the previous beat, in seconds and as text."""
    frames = listen.onsets(sound[int((first_beat - 1) * COLUMN_S * listen.RATE):])
    check(len(frames) == BEATS, f"{len(frames)} beats were heard instead of {BEATS}")
    expected = BEAT_COLUMNS * COLUMN_S * listen.RATE
    late = [(b - a - expected) / listen.RATE for a, b in zip(frames, frames[1:])]
    told = "the distances of the beats are off by ms: " + " ".join(f"{1000 * value:.2f}" for value in late)
    check(abs(statistics.median(late)) <= WAKING_S, told)
    return late, told


def play(desk, program, seconds):
    """Plays the song and returns the sound from shortly before the first note, of the given length."""
    start = listen.frames_in(desk.recording)
    program.press(6)
    wait_until(lambda: listen.frames_in(desk.recording) > start + listen.RATE * seconds, "the song's sound",
               seconds + 30)
    sound = listen.samples(desk.recording, start)
    first = listen.first_sound(sound)
    check(first is not None, "the song was not heard")
    return sound[max(0, first - 100):]
