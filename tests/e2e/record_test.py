"""Records a score with the mouse, with and without a sound server, and checks the sound of the WAV and the MP3."""

import subprocess

import listen
from desk import PATIENCE_S, Desk, DeskWithoutSound, check, run, wait_until
from recorded import (SLOWER, START, decoded, frames_of, from_first_sound, left_of, mp3_seconds, one_new, open_score,
                      open_toolbar)
from tune import BEAT_COLUMNS, BEATS, COLUMN_S, WAKING_S, late_beats, melody_and_beats

MELODY = [60, 65, 67, 58, 63]  # pitch indices; the key is 127 minus the index
NOTE_COLUMNS = 4
FIRST_BEAT = 24
COLUMNS = FIRST_BEAT + BEAT_COLUMNS * (BEATS - 1) + 1


def record(desk, program):
    """Records the song; returns the WAV and the MP3."""
    before = set(desk.songs.iterdir())
    desk.click(*program.place_in("Recording Toolbar", START))
    wav = wait_until(lambda: one_new(desk, ".wav", before), "the WAV", COLUMNS * COLUMN_S + PATIENCE_S)
    number = wav.name.removesuffix("tmp.wav")
    check(number.isdigit() and 1 <= int(number) <= 99999, f"the recording is named {wav.name}")
    mp3 = wav.with_suffix(".mp3")
    length = frames_of(wav.read_bytes()) / listen.RATE
    wait_until(lambda: mp3.exists() and mp3_seconds(mp3.read_bytes()) >= SLOWER * length, "the whole MP3")
    return wav, mp3


def within_notes(sound, slower=1):
    """A piece of sound from within each note of the melody, and the key that it must have.

    At half speed, every note is an octave lower. Each note is looked for from the one before: a busy machine plays it,
    and all after it, later.
    """
    keys = [127 - pitch - (12 if slower == 2 else 0) for pitch in MELODY]
    length = int(NOTE_COLUMNS * COLUMN_S * listen.RATE * slower)
    start = 0
    for before, key in zip([None, *keys], keys):
        if before is not None:
            start = listen.change_of_key(sound, before, key, start + length // 2, start + 2 * length) or start + length
        yield sound[start + int(0.4 * length):][:4096], key


def check_melody(sound, slower=1):
    for i, (piece, key) in enumerate(within_notes(sound, slower)):
        heard = listen.key_of(piece)
        check(heard == key, f"note {i} of the melody is key {heard} instead of {key}")


def check_beats(sound):
    """The errors of each beat's distance from the previous beat, and from the first beat."""
    late, told = late_beats(sound, FIRST_BEAT)
    check(min(late) >= -WAKING_S, "sound is missing: " + told)
    check(abs(sum(late)) <= len(late) * WAKING_S, "the song is longer or shorter: " + told)


def check_length(sound):
    """Checks that the recording has little before the first note and after the last column."""
    lead = listen.first_sound(sound) / listen.RATE
    behind = len(sound) / listen.RATE - lead - COLUMNS * COLUMN_S
    check(lead < 1.0, f"the first note comes after {lead:.2f} s")
    check(-0.05 < behind < 1.0, f"the recording ends {behind:.2f} s after the last column")


def check_loudness(desk, sound):
    """Checks that each note is as loud as in the rendered sound of the same score."""
    rendered = desk.folder / "rendered.wav"
    subprocess.run([desk.build / "bin" / "velorin-convert", desk.songs / "tune.sng", "-o", rendered], check=True)
    expected = from_first_sound(left_of(rendered))
    for i, pieces in enumerate(zip(within_notes(sound), within_notes(expected))):
        mine, theirs = (listen.loudness(piece) for piece, _ in pieces)
        check(0.9 * theirs < mine < 1.1 * theirs, f"note {i} has the level {mine} instead of {theirs}")


def check_mp3(desk, mp3):
    check_melody(from_first_sound(decoded(mp3, desk.folder)), SLOWER)


def check_recording(desk, program):
    wav, mp3 = record(desk, program)
    sound = left_of(wav)
    check_melody(from_first_sound(sound))
    check_loudness(desk, from_first_sound(sound))
    check_mp3(desk, mp3)
    check_beats(from_first_sound(sound))
    check_length(sound)


def test_at(desk):
    desk.songs.mkdir()
    (desk.songs / "tune.sng").write_bytes(melody_and_beats(MELODY, FIRST_BEAT, NOTE_COLUMNS).text())
    program = desk.launch()
    program.main_window()
    open_score(desk, program, "tune.sng", MELODY[0])
    open_toolbar(desk, program)
    check_recording(desk, program)
    return program


def test(build):
    with Desk(build) as desk:
        test_at(desk).end()
    with DeskWithoutSound(build) as desk:
        program = test_at(desk)
        program.press(14)
        check(program.process.wait(PATIENCE_S) == 0, "the program did not end with status 0")
        complaints = program.complaints().splitlines()
        check(len(complaints) <= 1 and all("no sound card" in line for line in complaints),
              f"on standard error: {complaints}")


run(test)
