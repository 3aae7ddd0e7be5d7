"""Records a score with the mouse, with a sound server and without one, and listens to the WAV and the MP3."""

import os
import subprocess

import listen
from desk import PATIENCE_S, Desk, DeskWithoutSound, Failure, check, run, wait_until
from recorded import (SLOWER, START, decoded, frames_of, from_first_sound, left_of, mp3_seconds, one_new, open_score,
                      open_toolbar)
from tune import BEAT_COLUMNS, BEATS, BLOCK_S, COLUMN_S, late_beats, melody_and_beats

MELODY = [60, 65, 67, 58, 63]  # pitch indices, counted from the top: the keys are 127 less these
NOTE_COLUMNS = 4
FIRST_BEAT = 24
COLUMNS = FIRST_BEAT + BEAT_COLUMNS * (BEATS - 1) + 1
# What the waking of the processor may cost two columns, at each attempt: a machine that is busy with other things wakes
# the program late now and then, and one that is busy all the time does so again and again.
WAKING_S = [0.0005, 0.002, 0.006]
if os.getloadavg()[0] > 2 * os.cpu_count():
    WAKING_S.append(0.08)


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


def check_melody(sound, slower=1):
    """Slower by 2, every note is an octave lower."""
    for i, pitch in enumerate(MELODY):
        middle = int((i + 0.4) * NOTE_COLUMNS * COLUMN_S * listen.RATE * slower)
        expected = 127 - pitch - (12 if slower == 2 else 0)
        heard = listen.key_of(sound[middle:middle + 4096])
        check(heard == expected, f"note {i} of the melody is key {heard} and not {expected}")


def check_beats(sound, waking_s):
    """How far each beat is from its place behind the beat before it, and behind the first."""
    late, told = late_beats(sound, FIRST_BEAT, waking_s)
    check(min(late) >= -2 * BLOCK_S - waking_s, "sound is missing: " + told)
    check(abs(sum(late)) <= len(late) * (BLOCK_S + waking_s), "the song is longer or shorter: " + told)


def check_length(sound):
    """The song and little besides: what stands before the first note, and what the last column leaves."""
    lead = listen.first_sound(sound) / listen.RATE
    behind = len(sound) / listen.RATE - lead - COLUMNS * COLUMN_S
    check(lead < 1.0, f"the first note comes after {lead:.2f} s")
    check(-0.05 < behind < 1.0, f"the recording ends {behind:.2f} s behind the last column")


def check_loudness(desk, sound):
    """Each note is as loud as in the rendered sound of the same score."""
    rendered = desk.folder / "rendered.wav"
    subprocess.run([desk.build / "bin" / "velorin-convert", desk.songs / "tune.sng", "-o", rendered], check=True)
    expected = from_first_sound(left_of(rendered))
    for i in range(len(MELODY)):
        middle = int((i + 0.4) * NOTE_COLUMNS * COLUMN_S * listen.RATE)
        mine, theirs = (listen.loudness(each[middle:middle + 4096]) for each in (sound, expected))
        check(0.9 * theirs < mine < 1.1 * theirs, f"note {i} is as loud as {mine} and not {theirs}")


def check_mp3(desk, mp3):
    sound = decoded(mp3, desk.folder)
    if sound:
        check_melody(from_first_sound(sound), SLOWER)


def check_recording(desk, program):
    for waking_s in WAKING_S:
        wav, mp3 = record(desk, program)
        sound = left_of(wav)
        try:
            check_melody(from_first_sound(sound))
            check_loudness(desk, from_first_sound(sound))
            check_mp3(desk, mp3)
            check_beats(from_first_sound(sound), waking_s)
            check_length(sound)
            return
        except Failure:
            if waking_s == WAKING_S[-1]:
                raise


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
        check(program.process.wait(PATIENCE_S) == 0, "the program does not end well")
        complaints = program.complaints().splitlines()
        check(len(complaints) <= 1 and all("no sound card" in line for line in complaints),
              f"on standard error: {complaints}")


run(test)
