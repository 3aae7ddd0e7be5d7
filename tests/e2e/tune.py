"""A song whose notes and beats are known by their places in the sound, and what is heard when it plays."""

import statistics

import listen
from desk import check, wait_until
from score_text import Score

TEMPO = 120
COLUMN_S = 12 / TEMPO
OCARINA, WOOD_BLOCK = 79, 169
BEATS, BEAT_COLUMNS = 10, 2
BLOCK_S = 64 / listen.RATE  # a note begins with one of the synthesizer's blocks


def melody_and_beats(melody, first_beat, note_columns=2):
    """The melody, silence, then ten beats at every second column."""
    score = Score(TEMPO)
    for i, pitch in enumerate(melody):
        score.note(0, note_columns * i, pitch, note_columns, OCARINA)
    for i in range(BEATS):
        score.note(8, first_beat + BEAT_COLUMNS * i, 57, 1, WOOD_BLOCK)
    score.row_instruments[0] = OCARINA
    score.row_instruments[8] = WOOD_BLOCK
    return score


def late_beats(sound, first_beat, waking_s):
    """How far each beat is from its place behind the beat before it, in seconds, and that as text. Most are where
    they belong, up to a block and `waking_s`, what a busy machine takes to wake for a column."""
    frames = listen.onsets(sound[int((first_beat - 1) * COLUMN_S * listen.RATE):])
    check(len(frames) == BEATS, f"{len(frames)} beats are heard and not {BEATS}")
    expected = BEAT_COLUMNS * COLUMN_S * listen.RATE
    late = [(b - a - expected) / listen.RATE for a, b in zip(frames, frames[1:])]
    told = "the distances of the beats are off by ms: " + " ".join(f"{1000 * value:.2f}" for value in late)
    check(abs(statistics.median(late)) <= BLOCK_S + waking_s, told)
    check(sum(abs(value) <= 2 * BLOCK_S + waking_s for value in late) >= 0.75 * len(late), told)
    return late, told


def play(desk, program, seconds):
    """Plays the song; returns so much of what the sound card got, from shortly before the first note on."""
    start = listen.frames_in(desk.recording)
    program.press(6)
    wait_until(lambda: listen.frames_in(desk.recording) > start + listen.RATE * seconds, "the song's sound",
               seconds + 30)
    sound = listen.samples(desk.recording, start)
    first = listen.first_sound(sound)
    check(first is not None, "the song was not heard")
    return sound[max(0, first - 100):]
