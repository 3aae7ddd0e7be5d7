"""A song whose notes and beats are known by their places in the sound, and what is heard when it plays."""

import listen
from desk import check, wait_until
from score_text import Score

TEMPO = 120
COLUMN_S = 12 / TEMPO
OCARINA, WOOD_BLOCK = 79, 169
BEATS, BEAT_COLUMNS = 10, 2


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
